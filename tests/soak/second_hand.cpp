#include "soak/second_hand.h"

#include <windows.h>

#include <chrono>
#include <cmath>
#include <iterator>

namespace mrl {
namespace {

constexpr double kSecondMs = 1000;
/// Where a poll stands from the moment at which the shown second should change.
constexpr double kBesideMs[] = {20, -20, 40, -40, 60, -60};

/// The clock on the wall: what the system takes for the time of day.
double wallMs() {
  FILETIME time{};
  GetSystemTimePreciseAsFileTime(&time);
  return static_cast<double>((uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime) / 10'000;
}

/// "01:02:03" or "02:03" in seconds.
int64_t secondsIn(const std::string& time) {
  int64_t seconds = 0;
  for (size_t at = 0; at < time.size(); at += 3)
    seconds = seconds * 60 + std::stoi(time.substr(at));
  return seconds;
}

}  // namespace

bool SecondHand::start() {
  const double fromMs = wallMs();
  if (!steady.command("toggle")) return false;
  startedMs = wallMs();
  seen.shown.start(fromMs, startedMs);
  thread = std::thread([this] { run(); });
  return true;
}

SecondHand::Seen SecondHand::stop() {
  {
    const std::lock_guard lock(ending);
    isEnding = true;
  }
  ended.notify_all();
  if (thread.joinable()) thread.join();
  seen.shown.end();
  return seen;
}

void SecondHand::run() {
  for (size_t beside = 0;; beside = (beside + 1) % std::size(kBesideMs)) {
    const double second = std::floor((wallMs() - startedMs) / kSecondMs + 0.5) + 1;
    if (!waitUntilMs(startedMs + second * kSecondMs + kBesideMs[beside])) return;
    const std::lock_guard lock(asking);
    pollSteady();
    (void)poll(other);
  }
}

std::string SecondHand::poll(const Phone& phone) {
  constexpr int kFailuresTold = 5;
  const double askedMs = wallMs();
  const std::string response = phone.ask(get("/api/state"));
  ++seen.polls;
  if (statusOf(response) == 200) return bodyOf(response);
  if (++seen.unanswered <= kFailuresTold) {
    seen.firstFailures += " status " + std::to_string(statusOf(response)) + " after " +
                          std::to_string(std::lround(wallMs() - askedMs)) + " ms;";
  }
  return {};
}

void SecondHand::pollSteady() {
  const double askedMs = wallMs();
  const std::string time = timeIn(poll(steady));
  const double answeredMs = wallMs();
  if (!time.empty()) seen.shown.add(askedMs, answeredMs, secondsIn(time));
}

/// False once the polls have to end.
bool SecondHand::waitUntilMs(double wallMsThen) {
  std::unique_lock lock(ending);
  const std::chrono::duration<double, std::milli> rest(wallMsThen - wallMs());
  return !ended.wait_for(lock, rest, [this] { return isEnding; });
}

}  // namespace mrl

// The CPU time that opening the real settings window and turning to another page cost in the
// program's process, compared with a bare window of the system's own controls. The first argument
// is the number of rounds. Needs marlune.exe beside it and a desktop.
#include <windows.h>
// Must come after <windows.h>.
#include <tlhelp32.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "bare_settings_win.h"
#include "base/command_ids.h"
#include "base/geometry.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "windows/program.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

constexpr int kOpenings = 3;      // of a round: CPU times have a resolution of 10 ms
constexpr DWORD kSettleMs = 150;  // includes what is painted when the loop is idle

uint64_t nsOf(const FILETIME& time) {
  return ((uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime) * 100;
}

uint64_t threadNs(DWORD threadId) {
  const HANDLE thread = OpenThread(THREAD_QUERY_INFORMATION, FALSE, threadId);
  FILETIME created;
  FILETIME ended;
  FILETIME kernel{};
  FILETIME user{};
  GetThreadTimes(thread, &created, &ended, &kernel, &user);
  CloseHandle(thread);
  return nsOf(kernel) + nsOf(user);
}

/// Sums the threads, because Wine does not report the total of another process.
uint64_t processorNs(DWORD processId) {
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof thread;
  uint64_t sum = 0;
  for (BOOL more = Thread32First(snapshot, &thread); more; more = Thread32Next(snapshot, &thread)) {
    if (thread.th32OwnerProcessID == processId) sum += threadNs(thread.th32ThreadID);
  }
  CloseHandle(snapshot);
  return sum;
}

/// One of the two that are compared.
struct Subject {
  const char* name;
  DWORD processId;
  std::function<void()> open;
  std::function<void(int)> turn;
  std::function<void()> close;
  std::vector<uint64_t> openingNs;  // one figure a round
  std::vector<uint64_t> turnNs;
};

uint64_t costOf(DWORD processId, const std::function<void()>& action) {
  const uint64_t before = processorNs(processId);
  action();
  Sleep(kSettleMs);
  return processorNs(processId) - before;
}

void measureRound(Subject& subject) {
  uint64_t openings = 0;
  uint64_t turns = 0;
  for (int i = 0; i < kOpenings; ++i) {
    openings += costOf(subject.processId, subject.open);
    for (int step = 1; step <= kPageCount; ++step) {
      turns += costOf(subject.processId, [&] { subject.turn(step % kPageCount); });
    }
    subject.close();
    Sleep(kSettleMs);
  }
  subject.openingNs.push_back(openings / kOpenings);
  subject.turnNs.push_back(turns / (kOpenings * kPageCount));
}

void print(const char* what, const char* who, std::vector<uint64_t> rounds) {
  std::ranges::sort(rounds);
  std::printf("%s\t%s\t%llu\n", what, who,
              static_cast<unsigned long long>(rounds[rounds.size() / 2]));
}

Subject realSubject(const Program& program) {
  DWORD processId = 0;
  GetWindowThreadProcessId(program.clock(), &processId);
  return {.name = "marlune",
          .processId = processId,
          .open = [&] { program.command(kCommandOpenSettings); },
          .turn =
              [&](int page) {
                SendMessageW(program.settingsWindow(), WM_COMMAND,
                             static_cast<WPARAM>(kFirstSection + page), 0);
              },
          .close = [&] { (void)program.closeSettings(); }};
}

Subject bareSubject(HWND host, Size size) {
  DWORD processId = 0;
  GetWindowThreadProcessId(host, &processId);
  return {.name = "bare controls",
          .processId = processId,
          .open = [=] { SendMessageW(host, kBareOpen, 0, MAKELPARAM(size.width, size.height)); },
          .turn = [=](int page) { SendMessageW(host, kBareTurn, static_cast<WPARAM>(page), 0); },
          .close = [=] { SendMessageW(host, kBareClose, 0, 0); }};
}

/// This program once more; null if it doesn't start.
HWND startBareHost(PROCESS_INFORMATION& started) {
  std::wstring line = L"\"" + standin::executableFolder() + L"marlune_settings_bench.exe\" bare";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &started)) {
    return nullptr;
  }
  HWND host = nullptr;
  const auto isThere = [&] { return (host = FindWindowW(kBareHostClass, nullptr)) != nullptr; };
  return standin::waitUntil(isThere) ? host : nullptr;
}

int measure(int rounds) {
  Program program;
  Settings settings;
  settings.windowX = GetSystemMetrics(SM_CXSCREEN) - scaled(60);  // out of the window's way
  program.prepare(settings);
  if (!program.start(L"", Program::Opening::Kept)) return 1;
  RECT rect{};
  GetWindowRect(program.settingsWindow(), &rect);
  if (!program.closeSettings()) return 1;
  PROCESS_INFORMATION started{};
  const HWND host = startBareHost(started);
  if (host == nullptr) return 1;

  Subject subjects[] = {realSubject(program),
                        bareSubject(host, {rect.right - rect.left, rect.bottom - rect.top})};
  for (int round = 0; round < rounds; ++round) {
    for (Subject& subject : subjects) measureRound(subject);
  }
  for (const Subject& subject : subjects) {
    print("opening of the settings window", subject.name, subject.openingNs);
    print("turn to another page", subject.name, subject.turnNs);
  }
  TerminateProcess(started.hProcess, 0);
  return 0;
}

}  // namespace
}  // namespace mrl

int main(int count, char** arguments) {
  SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
  const std::string argument = count > 1 ? arguments[1] : "3";
  return argument == "bare" ? mrl::runBareSettings() : mrl::measure(std::stoi(argument));
}

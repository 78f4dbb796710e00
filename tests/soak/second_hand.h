// Asks programs for their state once a second, as the page of a remote control does, on a thread of
// its own. Windows only.
#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

#include "soak/phone.h"
#include "soak/shown_time.h"

namespace mrl {

/// One program that counts up from its start to the end is compared with the wall clock, the other
/// one is only asked. REQUIRES: a Winsock object lives as long.
class SecondHand {
 public:
  struct Seen {
    ShownTime shown;
    int polls = 0;
    int unanswered = 0;
    std::string firstFailures;  // what came instead of an answer
  };

  SecondHand(const Phone& ofSteady, const Phone& ofOther) : steady(ofSteady), other(ofOther) {}
  SecondHand(const SecondHand&) = delete;
  ~SecondHand() { stop(); }

  /// Starts the timer of the steady one, and the polls. False if it can't be started.
  [[nodiscard]] bool start();
  /// Ends the polls and tells what they saw.
  Seen stop();
  /// While the result lives, nobody is asked.
  std::unique_lock<std::mutex> pause() { return std::unique_lock(asking); }

 private:
  void run();
  /// The state; empty if there was no answer in time.
  std::string poll(const Phone& phone);
  void pollSteady();
  bool waitUntilMs(double wallMs);

  Phone steady;
  Phone other;
  double startedMs = 0;
  std::mutex asking;
  std::mutex ending;
  std::condition_variable ended;
  bool isEnding = false;
  std::thread thread;
  Seen seen;
};

}  // namespace mrl

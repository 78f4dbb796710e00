// The headless program and the commands that control it.
#pragma once

#include <atomic>
#include <string>

#include "base/clock_posix.h"
#include "http/request_queue_posix.h"
#include "http/sockets_posix.h"
#include "remote/served_app_fake.h"

namespace mrl {

/// Real time that a test can advance.
class PushedClock : public Clock {
 public:
  uint64_t nowMs() const override { return real.nowMs() + pushedMs; }
  LocalTime localTime() const override { return real.localTime(); }
  void push(uint64_t byMs) { pushedMs += byMs; }

 private:
  ClockPosix real;
  std::atomic<uint64_t> pushedMs = 0;
};

/// Used by one thread only, which is the UI thread.
class Headless {
 public:
  explicit Headless(const std::string& page);

  /// Starts the program and the service on loopback; port 0 picks a free one. Returns an empty
  /// text, or the error.
  std::string start(int32_t port);
  void finish();

  [[nodiscard]] bool isRunning() const { return !hasQuit; }
  [[nodiscard]] bool isBlocked() const { return blocked; }
  [[nodiscard]] int32_t port() const { return served.app.remote.port; }
  [[nodiscard]] int wakeDescriptor() const { return requests.descriptor(); }
  [[nodiscard]] uint64_t msUntilTick() const;
  void tickIfDue();
  void runPosted();

  /// Runs one command line. Returns an empty text, or the error.
  ///   advance MS         time jumps ahead
  ///   block | unblock    while blocked, the UI thread runs nothing but these commands
  ///   stop | start | restart    the service
  ///   command N          runs a menu command, by its number
  ///   show-clock | hide-clock
  ///   add NAME | remove NAME    a file in the presentation folder
  ///   folder NAME        sets the presentation folder to C:\NAME; without NAME, to none
  ///   show NAME          starts a show of that file
  ///   slide N            moves the show to that slide
  ///   end-show
  ///   fail-saves | allow-saves
  ///   dirty | clean      unfinished input in the settings window
  ///   quit
  std::string obey(const std::string& line);

 private:
  std::string obeyService(const std::string& word);
  bool obeyShow(const std::string& word, const std::string& rest);
  bool obeyFolder(const std::string& word, const std::string& rest);
  bool obeyTime(const std::string& word, const std::string& rest);
  bool obeySwitch(const std::string& word);
  std::string startService();
  FilesFake& files() { return served.fakes.outside.files; }
  std::u16string inFolder(const std::string& name);

  SocketsPosix sockets;
  RequestQueuePosix requests;
  PushedClock clock;
  ServedApp served{sockets, requests, clock};
  std::shared_ptr<FakeApplication> program =
      served.fakes.outside.automation.add(u"PowerPoint.Application");
  uint64_t nextTickMs = 0;
  bool hasQuit = false;
  bool blocked = false;
};

}  // namespace mrl

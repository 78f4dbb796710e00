// What the program without a desktop is made of, and the words that steer it.
#pragma once

#include <atomic>
#include <string>

#include "base/clock_posix.h"
#include "http/request_queue_posix.h"
#include "http/sockets_posix.h"
#include "remote/served_app_fake.h"

namespace mrl {

/// Real time, which a test can push on.
class PushedClock : public Clock {
 public:
  uint64_t nowMs() const override { return real.nowMs() + pushedMs; }
  LocalTime localTime() const override { return real.localTime(); }
  void push(uint64_t byMs) { pushedMs += byMs; }

 private:
  ClockPosix real;
  std::atomic<uint64_t> pushedMs = 0;
};

/// One thread owns it, and that is the UI thread.
class Headless {
 public:
  explicit Headless(const std::string& page);

  /// Start-up, and the service on loopback; port 0 is any free one. Empty, or what went wrong.
  std::string start(int32_t port);
  void finish();

  [[nodiscard]] bool isRunning() const { return !hasQuit; }
  [[nodiscard]] bool isBlocked() const { return blocked; }
  [[nodiscard]] int32_t port() const { return served.app.remote.port; }
  [[nodiscard]] int wakeDescriptor() const { return requests.descriptor(); }
  [[nodiscard]] uint64_t msUntilTick() const;
  void tickIfDue();
  void runPosted();

  /// One line of the following. Empty, or what was wrong with it.
  ///   advance MS         time jumps ahead
  ///   block | unblock    the UI thread does nothing in between but to obey
  ///   stop | start | restart    the service
  ///   command N          a command of the menu, by number
  ///   show-clock | hide-clock
  ///   add NAME | remove NAME    a file in the presentation folder
  ///   folder NAME        another presentation folder below C:\; "folder" alone chooses none
  ///   show NAME          a show of that file runs
  ///   slide N            it stands on that slide
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

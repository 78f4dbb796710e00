#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/main_loop.h"

namespace mrl {

class MainLoopFake : public MainLoop {
 public:
  bool prepareDrawing() override {
    calls.push_back("prepareDrawing");
    return drawingWorks;
  }
  void registerWindowClasses() override { calls.push_back("registerWindowClasses"); }
  void setTimer(LoopTimer timer, uint32_t periodMs) override {
    calls.push_back("setTimer " + std::to_string(static_cast<uint32_t>(timer)));
    timers[timer] = periodMs;
  }
  void killTimer(LoopTimer timer) override {
    calls.push_back("killTimer " + std::to_string(static_cast<uint32_t>(timer)));
    timers.erase(timer);
  }
  void postCommand(int command) override { posted.push_back(command); }
  void quit() override {
    calls.push_back("quit");
    hasQuit = true;
  }
  uint32_t processId() override { return 4711; }

  bool drawingWorks = true;
  bool hasQuit = false;
  std::map<LoopTimer, uint32_t> timers;
  std::vector<int> posted;
  std::vector<std::string> calls;
};

}  // namespace mrl

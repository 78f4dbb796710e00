// A fake desktop: a list of windows that logs what is done to them.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "presentation/window_system.h"

namespace mrl {

struct FakeWindow {
  WindowHandle handle = {};
  std::u16string image = u"C:\\Office\\POWERPNT.EXE";  // empty: the process can't be queried
  std::u16string title = {};
  std::u16string className = {};
  Rect rect = {0, 0, 1920, 1080};
  Rect monitor = {0, 0, 1920, 1080};
  bool visible = true;
  bool iconic = false;
  int queriesLeft = -1;      // queries until it is gone; -1: never
  WindowHandle parent = {};  // its top-level window, if it is a child
};

class WindowSystemFake : public WindowSystem {
 public:
  using Log = std::vector<std::string>;
  /// The log may be shared with other fakes to check the order of calls across them.
  explicit WindowSystemFake(Log& sharedLog) : log(sharedLog) {}

  std::vector<FakeWindow> windows;  // topmost first
  WindowHandle foregroundWindow;
  bool foregroundRefused = false;
  size_t keysTaken = SIZE_MAX;  // events accepted per call
  int scans = 0;
  Log& log;  // "restore 5", "keys +16 +116 -116 -16"

  std::vector<WindowHandle> topLevelWindows() override {
    ++scans;
    std::vector<WindowHandle> handles;
    for (const FakeWindow& window : windows) {
      if (!window.parent) handles.push_back(window.handle);
    }
    return handles;
  }
  std::vector<WindowHandle> windowsInside(WindowHandle parent) override {
    std::vector<WindowHandle> handles;
    for (const FakeWindow& window : windows) {
      if (parent && window.parent == parent) handles.push_back(window.handle);
    }
    return handles;
  }
  bool isVisible(WindowHandle window) override { return stateOf(window).visible; }
  bool isIconic(WindowHandle window) override { return stateOf(window).iconic; }
  std::u16string imageName(WindowHandle window) override { return stateOf(window).image; }
  std::u16string title(WindowHandle window) override {
    return stateOf(window).title.substr(0, 2047);
  }
  std::u16string className(WindowHandle window) override {
    return stateOf(window).className.substr(0, 255);
  }
  Rect rect(WindowHandle window) override { return stateOf(window).rect; }
  Rect monitorRect(WindowHandle window) override { return stateOf(window).monitor; }
  bool isWindow(WindowHandle window) override { return static_cast<bool>(stateOf(window).handle); }

  WindowHandle foreground() override { return foregroundWindow; }
  void setForeground(WindowHandle window) override {
    note("foreground", window);
    if (!foregroundRefused) foregroundWindow = window;
  }
  void restore(WindowHandle window) override { note("restore", window); }
  void show(WindowHandle window) override { note("show", window); }
  void setTopmost(WindowHandle window, bool topmost) override {
    note(topmost ? "topmost" : "not topmost", window);
  }
  void bringToTop(WindowHandle window) override { note("top", window); }
  size_t sendKeys(const std::vector<KeyEvent>& events) override {
    std::string entry = "keys";
    for (const KeyEvent& event : events) {
      entry += (event.up ? " -" : " +") + std::to_string(event.virtualKey);
    }
    log.push_back(entry);
    return std::min(events.size(), keysTaken);
  }

 private:
  // The window's present state; empty values if it is gone.
  FakeWindow stateOf(WindowHandle handle) {
    for (FakeWindow& window : windows) {
      if (window.handle != handle || window.queriesLeft == 0) continue;
      if (window.queriesLeft > 0) --window.queriesLeft;
      return window;
    }
    return {.image = {}, .title = {}, .className = {}, .rect = {}, .monitor = {}, .visible = false};
  }
  void note(const std::string& what, WindowHandle window) {
    log.push_back(what + " " + std::to_string(window.value));
  }
};

}  // namespace mrl

// What start-up and shutdown need from the process and its message loop.
#pragma once

#include <cstdint>

namespace mrl {

/// The window timers; the value is the timer's id.
enum class LoopTimer : uint32_t { Tick = 1, TrayRetry = 2 };

/// UI thread only.
class MainLoop {
 public:
  virtual ~MainLoop() = default;
  /// Creates the drawing factories; false on failure.
  [[nodiscard]] virtual bool prepareDrawing() = 0;
  virtual void registerWindowClasses() = 0;
  /// Starts a window timer, or changes its period. REQUIRES: the clock's window exists.
  virtual void setTimer(LoopTimer timer, uint32_t periodMs) = 0;
  virtual void killTimer(LoopTimer timer) = 0;
  /// Posts a command; it runs on a later turn of the message loop.
  virtual void postCommand(int command) = 0;
  virtual void quit() = 0;
  [[nodiscard]] virtual uint32_t processId() = 0;
};

}  // namespace mrl

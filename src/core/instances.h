// The starts of this program that one session's desktop has seen, as one of them meets the others.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/window_handle.h"

namespace mrl {

/// In whose name a process runs, and whether with an administrator's rights.
struct Account {
  std::u16string user;  // empty when it can't be told
  bool isElevated = false;

  bool operator==(const Account&) const = default;
};

/// A window that has the clock's class, of another process. Anyone can make one.
struct OtherClock {
  WindowHandle window;
  bool isAnnounced = false;  // its process has called announce() for it
  Account account;
};

/// UI thread only.
class Instances {
 public:
  virtual ~Instances() = default;

  /// Takes the place of the user's one running program in this session; it is given back when the
  /// process ends, however it ends. Waits up to `waitMs` for it. False: somebody else holds it.
  [[nodiscard]] virtual bool claim(uint32_t waitMs) = 0;
  /// Lets later starts find this one by its clock, for as long as that window lives.
  virtual void announce(WindowHandle clock) = 0;

  [[nodiscard]] virtual Account own() = 0;
  [[nodiscard]] virtual std::vector<OtherClock> others() = 0;
  /// Lets the clock's process come to the front and asks it for its settings. One that hangs gets
  /// to it later. False: the window has gone.
  [[nodiscard]] virtual bool askForSettings(WindowHandle clock) = 0;
};

}  // namespace mrl

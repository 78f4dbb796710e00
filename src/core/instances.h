// The other running instances of this program in the user's session.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/window_handle.h"

namespace mrl {

/// The account a process runs under, and whether it is elevated.
struct Account {
  std::u16string user;  // empty if unknown
  bool isElevated = false;

  bool operator==(const Account&) const = default;
};

/// A window of the clock's class in another process. Any process can create one.
struct OtherClock {
  WindowHandle window;
  bool isAnnounced = false;  // its process has called announce() for it
  Account account;
};

/// UI thread only.
class Instances {
 public:
  virtual ~Instances() = default;

  /// Claims the lock of the user's one running instance in this session; it is released when the
  /// process ends, however it ends. Waits up to `waitMs`. False: another process holds it, or it
  /// can't be created.
  [[nodiscard]] virtual bool claim(uint32_t waitMs) = 0;
  /// Marks the clock so that later instances find this one, for as long as the window lives.
  virtual void announce(WindowHandle clock) = 0;

  [[nodiscard]] virtual Account own() = 0;
  [[nodiscard]] virtual std::vector<OtherClock> others() = 0;
  /// Allows the clock's process to take the foreground and posts it the command that opens its
  /// settings. Waits up to two seconds for a busy process; a hung one runs the command later.
  /// False: it can't be posted, as when the window is gone.
  [[nodiscard]] virtual bool askForSettings(WindowHandle clock) = 0;
};

}  // namespace mrl

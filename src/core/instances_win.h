// Finds the other instances by a named mutex of the session and by their clocks' windows.
#pragma once

#include <windows.h>

#include "base/unique_handle.h"
#include "core/instances.h"

namespace mrl {

class InstancesWin : public Instances {
 public:
  InstancesWin() = default;
  InstancesWin(const InstancesWin&) = delete;
  InstancesWin& operator=(const InstancesWin&) = delete;

  bool claim(uint32_t waitMs) override;
  void announce(WindowHandle clock) override;
  Account own() override;
  std::vector<OtherClock> others() override;
  bool askForSettings(WindowHandle clock) override;

 private:
  struct PlaceTraits {
    static HANDLE none() { return nullptr; }
    // Harmless if another process owns the mutex: the release then fails.
    static void close(HANDLE place) {
      ReleaseMutex(place);
      CloseHandle(place);
    }
  };
  UniqueHandle<PlaceTraits> place;
};

}  // namespace mrl

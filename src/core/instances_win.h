// The starts of this program, known by a named object of the session and by their clocks' windows.
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
    // It may be another's: then nothing is given back.
    static void close(HANDLE place) {
      ReleaseMutex(place);
      CloseHandle(place);
    }
  };
  UniqueHandle<PlaceTraits> place;
};

}  // namespace mrl

#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "core/black_screen.h"

namespace mrl {

class BlackScreenWin : public BlackScreen {
 public:
  /// `creationParameter` is passed to every window; their class is already registered.
  BlackScreenWin(HINSTANCE instance, void* creationParameter);
  ~BlackScreenWin() override;

  void cover(const std::vector<Monitor>& monitors) override;
  void follow(const Monitor& monitor) override;
  void uncover() override;
  bool isCovering() override;
  bool contains(WindowHandle window) const override;
  void raise() override;

 private:
  struct Covered {
    std::u16string monitor;
    HWND window;
  };

  HINSTANCE instance;
  void* creationParameter;
  std::vector<Covered> windows;  // in the order of the monitors
};

}  // namespace mrl

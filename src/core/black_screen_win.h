#pragma once

#include <windows.h>

#include <vector>

#include "core/black_screen.h"

namespace mrl {

class BlackScreenWin : public BlackScreen {
 public:
  /// `creationParameter` is handed to every window, whose class the program has registered.
  BlackScreenWin(HINSTANCE instance, void* creationParameter);
  ~BlackScreenWin() override;

  void cover() override;
  void uncover() override;
  bool isCovering() override;
  bool contains(WindowHandle window) const override;
  void raise() override;

 private:
  HINSTANCE instance;
  void* creationParameter;
  std::vector<HWND> windows;  // in the order of the monitors
};

}  // namespace mrl

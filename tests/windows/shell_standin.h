// Stand-in for the taskbar: a window with the class name by which programs find it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "base/geometry.h"

namespace mrl {

/// The one created last receives the icons of all programs. Owned by the thread that created it,
/// which must dispatch messages: a program that adds its icon waits for the answer.
class ShellStandIn {
 public:
  struct Request {
    ULONG_PTR kind;  // NIM_ADD, NIM_MODIFY or NIM_DELETE
    HWND sender;
    UINT id;
    UINT flags;
    UINT callbackMessage;
    std::wstring tip;
    Size picture;  // pixels; empty without an icon
  };

  ShellStandIn();
  ShellStandIn(const ShellStandIn&) = delete;
  ~ShellStandIn();

  int count(ULONG_PTR kind) const;

  bool accepts = true;
  bool hasIcon = false;  // adding it twice fails, and so does modifying it if it is missing
  std::vector<Request> requests;

 private:
  bool take(const Request& request);
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window = nullptr;
};

}  // namespace mrl

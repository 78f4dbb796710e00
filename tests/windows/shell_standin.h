// Stands in for the taskbar: a window under the name by which programs find it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "base/geometry.h"

namespace mrl {

/// The latest one made gets the icons of every program. Belongs to the thread that made it, which
/// must handle messages: a program that adds its icon waits for the answer.
class ShellStandIn {
 public:
  struct Request {
    ULONG_PTR kind;  // NIM_ADD, NIM_MODIFY or NIM_DELETE
    HWND sender;
    UINT id;
    UINT flags;
    UINT callbackMessage;
    std::wstring tip;
    Size picture;  // pixels; none without an icon
  };

  ShellStandIn();
  ShellStandIn(const ShellStandIn&) = delete;
  ~ShellStandIn();

  int count(ULONG_PTR kind) const;

  bool accepts = true;
  bool hasIcon = false;  // what stands is not added again, and nothing else can be modified
  std::vector<Request> requests;

 private:
  bool take(const Request& request);
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window = nullptr;
};

}  // namespace mrl

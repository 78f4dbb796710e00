// Stands in for the taskbar: a window under the name by which programs find it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace mrl {

/// The latest one made gets the icons of every program. Belongs to the thread that made it, which
/// must handle messages: a program that adds its icon waits for the answer.
class ShellStandIn {
 public:
  struct Request {
    ULONG_PTR kind;  // NIM_ADD or NIM_DELETE
    HWND sender;
    std::string bytes;
  };

  ShellStandIn();
  ShellStandIn(const ShellStandIn&) = delete;
  ~ShellStandIn();

  int count(ULONG_PTR kind) const;

  bool accepts = true;
  std::vector<Request> requests;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window = nullptr;
};

}  // namespace mrl

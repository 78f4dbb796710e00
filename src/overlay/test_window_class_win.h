// A window class for tests that records its messages; usually under a name that the program uses.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "base/geometry.h"

namespace mrl {

/// Registered while this object lives. Windows of the class must be created with this object as
/// creation parameter, and destroyed before it.
class TestWindowClass {
 public:
  struct Message {
    UINT number = 0;
    WPARAM wide = 0;
  };

  explicit TestWindowClass(const wchar_t* name) : name(name) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = name;
    registered = RegisterClassExW(&windowClass) != 0;
  }
  TestWindowClass(const TestWindowClass&) = delete;
  TestWindowClass& operator=(const TestWindowClass&) = delete;
  ~TestWindowClass() { UnregisterClassW(name, GetModuleHandleW(nullptr)); }

  [[nodiscard]] bool received(UINT number, WPARAM wide) const {
    for (const Message& message : messages) {
      if (message.number == number && message.wide == wide) return true;
    }
    return false;
  }

  bool registered = false;
  std::vector<Message> messages;
  Point createdAt;                    // of the latest window, in screen pixels
  std::vector<HWND> insertedAfter;    // as requested by each z-order change
  std::function<void(HWND)> onPaint;  // must validate the window
  std::function<void(HWND)> onDestroy;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT number, WPARAM wide, LPARAM narrow) {
    if (number == WM_NCCREATE) {
      const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(narrow);
      SetWindowLongPtrW(window, GWLP_USERDATA,
                        reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
      auto* maker = static_cast<TestWindowClass*>(creation->lpCreateParams);
      if (maker) maker->createdAt = {creation->x, creation->y};
    }
    auto* self = reinterpret_cast<TestWindowClass*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self) {
      self->messages.push_back({number, wide});
      if (number == WM_PAINT && self->onPaint) {
        self->onPaint(window);
        return 0;
      }
      if (number == WM_DESTROY && self->onDestroy) self->onDestroy(window);
      if (number == WM_WINDOWPOSCHANGING) {
        const auto* change = reinterpret_cast<const WINDOWPOS*>(narrow);
        if (!(change->flags & SWP_NOZORDER)) self->insertedAfter.push_back(change->hwndInsertAfter);
      }
      // The system's move loop would block, waiting for the mouse.
      if (number == WM_NCLBUTTONDOWN) return 0;
    }
    return DefWindowProcW(window, number, wide, narrow);
  }

  const wchar_t* name;
};

}  // namespace mrl

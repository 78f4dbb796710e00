#include "core/app_win.h"

#include <windowsx.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/geometry_win.h"
#include "base/window_classes_win.h"
#include "core/blackout.h"
#include "core/clock_behaviour.h"
#include "core/commands.h"
#include "core/expiry.h"
#include "core/menu.h"
#include "core/tick.h"
#include "core/tray_icon.h"
#include "remote/remote_requests.h"
#include "settings/settings_path_win.h"

namespace mrl {
namespace {

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  auto* program = reinterpret_cast<AppWin*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (program == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  return program->handleMessage(window, message, wParam, lParam);
}

void moveToSuggestedRect(HWND window, LPARAM lParam) {
  const Rect rect = rectFrom(*reinterpret_cast<const RECT*>(lParam));
  SetWindowPos(window, nullptr, rect.left, rect.top, rect.width(), rect.height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

AppWin::AppWin(HINSTANCE programInstance)
    : instance(programInstance),
      clockWindow(programInstance, this),
      resizeToolbar(programInstance, this, clockWindow),
      blackScreen(programInstance, this),
      tray(programInstance, clockWindow),
      settingsView(programInstance, this, app.form),
      settingsDialogs(settingsView),
      previewView(settingsView),
      app({.clock = clock,
           .files = files,
           .automation = automation,
           .windows = windows,
           .screens = screens,
           .loop = *this,
           .clockWindow = clockWindow,
           .resizeToolbar = resizeToolbar,
           .blackScreen = blackScreen,
           .audio = audio,
           .tray = tray,
           .menu = menu,
           .shell = shell,
           .settingsView = settingsView,
           .settingsDialogs = settingsDialogs,
           .previewView = previewView,
           .sockets = sockets,
           .requests = requests,
           .serviceHost = serviceHost,
           .network = network,
           .firewall = firewall,
           .instances = instances}),
      settingsMessages(app, settingsView, painter) {}

int AppWin::run(const std::vector<std::u16string>& arguments) {
  if (const auto exitCode = startApp(app, arguments, settingsPath())) return *exitCode;
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (settingsMessages.takesFromLoop(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  finishApp(app);
  return static_cast<int>(message.wParam);
}

LRESULT AppWin::handleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_MEASUREITEM:
      if (measureMenuItem(window, *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam))) return TRUE;
      break;
    case WM_DRAWITEM:
      if (drawMenuItem(window, *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam),
                       isHighContrast())) {
        return TRUE;
      }
      break;
  }
  if (isWindowClass(window, kTimerClass))
    return handleClockMessage(window, message, wParam, lParam);
  if (isWindowClass(window, kResizeClass))
    return handleToolbarMessage(window, message, wParam, lParam);
  if (isWindowClass(window, kBlackClass))
    return handleBlackMessage(window, message, wParam, lParam);
  if (const auto result = settingsMessages.handle(window, message, wParam, lParam)) return *result;
  return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT AppWin::handleClockMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == tray.shellStartedMessage()) {
    onShellStarted(app);
    return 0;
  }
  switch (message) {
    case WM_COMMAND: runCommand(app, LOWORD(wParam)); return 0;
    case WM_DESTROY: onClockDestroyed(app); return 0;
    case WM_SIZE: onClockSized(app); return 0;
    case WM_PAINT: paint(window); return 0;
    case WM_CLOSE: runCommand(app, kCommandExit); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_GETMINMAXINFO: {
      const SizeLimits limits = clockSizeLimits(static_cast<int>(GetDpiForWindow(window)));
      auto* info = reinterpret_cast<MINMAXINFO*>(lParam);
      info->ptMinTrackSize = {limits.smallest.width, limits.smallest.height};
      info->ptMaxTrackSize = {limits.largest.width, limits.largest.height};
      return 0;
    }
    case WM_DPICHANGED:
      moveToSuggestedRect(window, lParam);
      onClockDpiChanged(app);
      return 0;
    case WM_DISPLAYCHANGE: onScreensChanged(app); break;
    case WM_WINDOWPOSCHANGED: placeToolbar(app); break;
    case WM_NCHITTEST: {
      const CornerHit hit = clockHitTest(app, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      if (hit != CornerHit::None) return static_cast<LRESULT>(hit);
      break;
    }
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK: {  // a quick second press
      const CornerHit hit = cornerFrom(static_cast<int>(wParam));
      if (!app.resizeMode || hit == CornerHit::None) break;
      onCornerPress(app, hit);
      return 0;
    }
    case WM_MOUSEMOVE:
      if (GetCapture() == window) onCornerDrag(app);
      return 0;
    case WM_LBUTTONUP: onCornerRelease(app); return 0;
    case WM_CAPTURECHANGED: onCaptureLost(app); break;
    case WM_LBUTTONDOWN: onClockPress(app); return 0;
    case WM_EXITSIZEMOVE: onClockMoveEnded(app); return 0;
    case WM_KEYDOWN:
      if (onClockKey(app, static_cast<int>(wParam))) return 0;
      break;
    case WM_TIMER:
      if (wParam == static_cast<WPARAM>(LoopTimer::Tick)) tick(app);
      if (wParam == static_cast<WPARAM>(LoopTimer::TrayRetry)) retryTrayIcon(app);
      return 0;
    case WM_CONTEXTMENU: openMenu(window, lParam); return 0;
    case kTrayNotify: PostMessageW(window, kTrayAction, wParam, lParam); return 0;
    case kTrayAction: onTrayMouse(app, LOWORD(lParam)); return 0;
    case kRemoteRequestMessage: onRemoteRequest(app, *requestFrom(lParam)); return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT AppWin::handleToolbarMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND: runCommand(app, LOWORD(wParam)); return 0;
    case WM_DPICHANGED: return 0;  // sized by the clock's DPI, not by its own
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT AppWin::handleBlackMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_WINDOWPOSCHANGED:
      if (!(reinterpret_cast<const WINDOWPOS*>(lParam)->flags & SWP_NOZORDER)) onBlackRaised(app);
      break;
    case WM_CLOSE:
    case WM_LBUTTONDOWN: return 0;  // neither ends the black screen
    case WM_KEYDOWN:
      if (onBlackKey(app, static_cast<int>(wParam))) return 0;
      break;
    case WM_CONTEXTMENU: openMenu(window, lParam); return 0;
    // Ignores the suggested rectangle: the window must cover its monitor.
    case WM_DPICHANGED: onScreensChanged(app); return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

void AppWin::openMenu(HWND window, LPARAM point) {
  onContextMenu(app, handleFrom(window), {GET_X_LPARAM(point), GET_Y_LPARAM(point)});
}

void AppWin::paint(HWND window) { painter.paintClock(window, pictureToPaint(app)); }

bool AppWin::prepareDrawing() { return painter.createFactories(); }

void AppWin::registerWindowClasses() { mrl::registerWindowClasses(instance, windowProcedure); }

void AppWin::setTimer(LoopTimer timer, uint32_t periodMs) {
  SetTimer(windowFrom(clockWindow.handle()), static_cast<UINT_PTR>(timer), periodMs, nullptr);
}

void AppWin::killTimer(LoopTimer timer) {
  KillTimer(windowFrom(clockWindow.handle()), static_cast<UINT_PTR>(timer));
}

void AppWin::postCommand(int command) {
  PostMessageW(windowFrom(clockWindow.handle()), WM_COMMAND, static_cast<WPARAM>(command), 0);
}

void AppWin::quit() { PostQuitMessage(0); }

uint32_t AppWin::processId() { return GetCurrentProcessId(); }

}  // namespace mrl

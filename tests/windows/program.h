// Starts the timer itself from a test, looks at its clock from outside, and steers it with the
// mouse and with commands, as its users and its menus do. Windows only.
#pragma once

#include <windows.h>

#include <string>

#include "settings/settings.h"

namespace mrl {

/// A folder that exists until the test ends.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::wstring& name = L"marlune test");
  TemporaryFolder(const TemporaryFolder&) = delete;
  ~TemporaryFolder();
  const std::wstring& path() const { return folder; }

 private:
  std::wstring folder;
};

/// What that file holds; nothing where there is none.
std::string bytesOf(const std::wstring& path);

/// One marlune.exe in test mode. Belongs to the thread that made it; every wait has a limit.
class Program {
 public:
  Program() = default;
  Program(const Program&) = delete;
  /// Ends the process if it still runs.
  ~Program();

  /// Puts `settings` into the settings file before the start.
  void prepare(const Settings& settings) const;
  /// Puts `bytes` there instead.
  void prepareBytes(const std::string& bytes) const;
  /// What becomes of the settings window, which opens at every start.
  enum class Opening { Closed, Kept };
  /// Starts it and waits until it is up. `arguments` stand before the one that names the test root.
  [[nodiscard]] bool start(const std::wstring& arguments = L"", Opening opening = Opening::Closed);

  /// As its user starts it: outside of a test's folder, on the real network. It must not run
  /// already.
  [[nodiscard]] bool startForUser();
  /// The same where another program is to take over: waits for the end; false when it doesn't come.
  [[nodiscard]] bool startInVain(DWORD& exitCode);

  /// Null while it is not shown.
  HWND settingsWindow() const;
  /// Closes it and waits until it is gone; false when it stays.
  [[nodiscard]] bool closeSettings() const;

  HWND clock() const { return window; }
  RECT rect() const;
  bool isVisible() const { return IsWindowVisible(window) != FALSE; }
  /// The mouse drags the clock or one of its corners.
  bool isHeldByMouse() const;
  /// What the clock shows.
  std::wstring text() const;
  /// Sees the clock change by itself, twice.
  [[nodiscard]] bool isCounting() const;
  /// Sees the clock say the same for more than two seconds.
  [[nodiscard]] bool standsStill() const;
  [[nodiscard]] bool waitForText(const std::wstring& expected) const;

  /// Runs a command and waits until it has run.
  void command(int number) const;
  /// Waits for the end of the process; false when it does not come.
  [[nodiscard]] bool waitForEnd(DWORD& exitCode);

  /// Where the program keeps what it keeps.
  const std::wstring& folder() const { return root.path(); }
  std::wstring settingsPath() const { return root.path() + L"\\settings.dat"; }
  std::string settingsBytes() const;
  /// What is in the settings file by now. May be asked over and over: the file, which nobody can
  /// replace while it is open, is opened only when it has changed.
  Settings settings() const;

 private:
  [[nodiscard]] bool launch(const std::wstring& arguments);
  struct Look {
    FILETIME changedAt{};
    Settings record;
    bool isReadable = false;
  };
  FILETIME settingsChangedAt() const;
  void lookAtSettings() const;

  TemporaryFolder root;
  HANDLE process = nullptr;
  DWORD processId = 0;
  HWND window = nullptr;
  mutable Look lastLook;
};

/// For the service of one test: programs of other tests may run meanwhile, and two can't share one.
uint32_t somePort();

/// The mouse, as a hand moves it. Screen pixels.
void pressAt(POINT point);
void moveTo(POINT point);
void release();
void clickAt(POINT point);
void rightClickAt(POINT point);

/// A key goes to the window in the foreground.
void pressKey(WORD virtualKey);

/// Tells a window of any process that it has come to a monitor of `dpi`, as Wine never does.
void sendDpiChanged(HWND window, int dpi, const RECT& suggested);

/// Where a thing of 96 dots per inch stands at the desktop's resolution.
int scaled(int units);

}  // namespace mrl

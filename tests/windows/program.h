// Runs the real program in a test: observes its clock from outside and controls it with the mouse
// and with commands, as users and menus do. Windows only.
#pragma once

#include <windows.h>

#include <string>

#include "settings/settings.h"

namespace mrl {

/// A folder that is removed at the end of the test.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::wstring& name = L"marlune test");
  TemporaryFolder(const TemporaryFolder&) = delete;
  ~TemporaryFolder();
  const std::wstring& path() const { return folder; }

 private:
  std::wstring folder;
};

/// The file's contents; empty if it doesn't exist.
std::string bytesOf(const std::wstring& path);

/// One marlune.exe in test mode. Owned by the thread that created it; every wait has a time limit.
class Program {
 public:
  Program() = default;
  Program(const Program&) = delete;
  /// Ends the process if it is still running.
  ~Program();

  /// Writes `settings` to the settings file before the start.
  void prepare(const Settings& settings) const;
  /// Writes `bytes` instead.
  void prepareBytes(const std::string& bytes) const;
  /// Whether start() closes the settings window, which opens at every start.
  enum class Opening { Closed, Kept };
  /// Starts the program and waits until it is ready. `arguments` precede the one for the test root.
  [[nodiscard]] bool start(const std::wstring& arguments = L"", Opening opening = Opening::Closed);

  /// Starts it as its user does: without test mode, on the real network. REQUIRES: it isn't
  /// running.
  [[nodiscard]] bool startForUser();
  /// Starts it while another instance is running and waits for it to exit; false if it doesn't.
  [[nodiscard]] bool startInVain(DWORD& exitCode);

  /// Null while it isn't shown.
  HWND settingsWindow() const;
  /// Closes the settings window and waits until it is gone; false if it stays.
  [[nodiscard]] bool closeSettings() const;

  HWND clock() const { return window; }
  DWORD id() const { return processId; }
  RECT rect() const;
  bool isVisible() const { return IsWindowVisible(window) != FALSE; }
  /// True while the mouse drags the clock or one of its corners.
  bool isHeldByMouse() const;
  /// The text on the clock.
  std::wstring text() const;
  /// True if the clock's text changes twice by itself.
  [[nodiscard]] bool isCounting() const;
  /// True if the clock's text stays the same for more than two seconds.
  [[nodiscard]] bool standsStill() const;
  [[nodiscard]] bool waitForText(const std::wstring& expected) const;

  /// Runs a command and waits until it is done.
  void command(int number) const;
  /// Waits for the process to exit; false on time-out.
  [[nodiscard]] bool waitForEnd(DWORD& exitCode);
  /// Ends the process at once, as a crash does, and waits until it is gone. After that it can be
  /// started again.
  void kill();

  /// The program's data folder.
  const std::wstring& folder() const { return root.path(); }
  std::wstring settingsPath() const { return root.path() + L"\\settings.dat"; }
  std::string settingsBytes() const;
  /// The current contents of the settings file. Cheap to poll: the file is opened only if it has
  /// changed, because nobody can replace it while it is open.
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
  mutable HWND knownSettings = nullptr;  // looked for among all windows only once
  mutable Look lastLook;
};

/// A random port for the service of one test: programs of other tests may run at the same time.
uint32_t somePort();

/// Real mouse input. Screen pixels.
void pressAt(POINT point);
void moveTo(POINT point);
void release();
void clickAt(POINT point);
void rightClickAt(POINT point);

/// Sends a key to the foreground window.
void pressKey(WORD virtualKey);

/// Sends WM_DPICHANGED to a window of any process; Wine never sends it.
void sendDpiChanged(HWND window, int dpi, const RECT& suggested);

/// Converts units at 96 DPI to pixels at the desktop's DPI.
int scaled(int units);

}  // namespace mrl

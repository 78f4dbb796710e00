// Simulates a user at the real program's settings window, with mouse and keyboard input that
// Windows takes for real, and observes the effects. Windows only.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

#include "settings/settings.h"
#include "settings_window/control_ids.h"
#include "windows/settings_screen.h"
#include "windows/standin_client.h"

namespace mrl {

/// Sends a key to the foreground window while the `held` keys are down.
void pressKeys(WORD key, std::initializer_list<WORD> held = {});
/// Types characters one by one.
void typeText(std::wstring_view text);
/// Screen pixels.
void clickMouse(POINT point, int times = 1);
/// One notch is 120; positive is away from the user.
void turnWheelAt(POINT point, int delta, std::initializer_list<WORD> held = {});
/// Puts text on the clipboard; false if the clipboard can't be opened.
[[nodiscard]] bool putOnClipboard(std::wstring_view text);
std::wstring clipboardText();

class SettingsHand : public SettingsScreen {
 protected:
  static constexpr wchar_t kApplied[] = L"设置已自动保存并生效。";
  static constexpr wchar_t kEditing[] = L"正在编辑，输入有效后自动应用。";
  static constexpr wchar_t kTyping[] = L"正在编辑，输入完成后自动应用。";
  static constexpr wchar_t kOthersWait[] = L"设置已生效；另有输入尚未完成。";
  static constexpr wchar_t kNotApplied[] = L" 此项尚未应用，其他设置可继续使用。";

  /// Settings with the service off.
  static Settings quiet();

  std::wstring status() const { return text(kStatusText); }
  /// Waits until the status line shows this.
  [[nodiscard]] bool says(const std::wstring& expected) const;
  bool isRed(int id) const { return isMarked(id, L"Marlune.Invalid"); }
  [[nodiscard]] bool isFocused(int id) const;
  /// Waits until the settings file contains this value.
  template <typename Value>
  [[nodiscard]] bool saved(Value Settings::*field, const std::type_identity_t<Value>& expected) {
    return standin::waitUntil([&] { return program.settings().*field == expected; });
  }
  template <typename Value>
  [[nodiscard]] bool saved(PromptStage Settings::*stage, Value PromptStage::*field,
                           const std::type_identity_t<Value>& expected) {
    return standin::waitUntil([&] { return program.settings().*stage.*field == expected; });
  }

  /// Clicks the section in the sidebar and waits for its page.
  void turnTo(int index) const;
  /// Waits until the box contains this.
  [[nodiscard]] bool reads(int id, const std::wstring& expected, DWORD limitMs = 10'000) const;
  [[nodiscard]] bool becomesChecked(int id, bool expected = true) const;
  [[nodiscard]] bool becomesRed(int id, bool expected = true) const;
  /// Top of a control on the page, in pixels; changes with scrolling.
  int topOf(int id) const { return rect(id).top; }

  /// Scrolls the page with the wheel until the middle of the control is visible.
  void reveal(int id) const;
  /// Scrolls to the control and clicks its middle.
  void press(int id) const;
  /// Clicks into the box and selects its text.
  void selectAll(int id) const;
  /// Replaces the box's text; an empty text deletes it.
  void retype(int id, std::wstring_view text) const;
  void paste(int id, std::wstring_view text) const;
  /// Opens the combo's list and clicks a row.
  void choose(int id, int row) const;

  /// The program's open message box; null if there is none.
  HWND question() const;
  [[nodiscard]] bool asks() const;
  std::wstring questionText() const;
  /// Clicks the button of the open message box.
  void answer(int button) const;
  /// Brings the settings window to the foreground, as a click on its title would. Without this Wine
  /// at times leaves no foreground window after a message box.
  void comeToFront() const;
  /// True if the settings window closes and no message box is left.
  [[nodiscard]] bool closes() const;
};

}  // namespace mrl

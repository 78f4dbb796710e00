// A person at the settings window of the real program: a mouse and a keyboard that Windows takes
// for real ones, and the eyes to see what comes of them. Windows only.
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

/// A key goes to the window in the foreground. The others are held down meanwhile.
void pressKeys(WORD key, std::initializer_list<WORD> held = {});
/// As a keyboard gives characters, one by one.
void typeText(std::wstring_view text);
/// On the screen.
void clickMouse(POINT point, int times = 1);
/// A notch is 120, away from the hand.
void turnWheelAt(POINT point, int delta, std::initializer_list<WORD> held = {});
/// What any program may paste; false when the clipboard is not to be had.
[[nodiscard]] bool putOnClipboard(std::wstring_view text);
std::wstring clipboardText();

class SettingsHand : public SettingsScreen {
 protected:
  static constexpr wchar_t kApplied[] = L"设置已自动保存并生效。";
  static constexpr wchar_t kEditing[] = L"正在编辑，输入有效后自动应用。";
  static constexpr wchar_t kTyping[] = L"正在编辑，输入完成后自动应用。";
  static constexpr wchar_t kOthersWait[] = L"设置已生效；另有输入尚未完成。";
  static constexpr wchar_t kNotApplied[] = L" 此项尚未应用，其他设置可继续使用。";

  /// A record whose service stays silent.
  static Settings quiet();

  std::wstring status() const { return text(kStatusText); }
  /// Waits until the status line says this.
  [[nodiscard]] bool says(const std::wstring& expected) const;
  bool isRed(int id) const { return isMarked(id, L"Marlune.Invalid"); }
  [[nodiscard]] bool isFocused(int id) const;
  /// Waits until the settings file holds this.
  template <typename Value>
  [[nodiscard]] bool saved(Value Settings::*field, const std::type_identity_t<Value>& expected) {
    return standin::waitUntil([&] { return program.settings().*field == expected; });
  }
  template <typename Value>
  [[nodiscard]] bool saved(PromptStage Settings::*stage, Value PromptStage::*field,
                           const std::type_identity_t<Value>& expected) {
    return standin::waitUntil([&] { return program.settings().*stage.*field == expected; });
  }

  /// Clicks on the section in the sidebar and waits for its page.
  void turnTo(int index) const;
  /// Waits until the box holds this.
  [[nodiscard]] bool reads(int id, const std::wstring& expected) const;
  [[nodiscard]] bool becomesChecked(int id, bool expected = true) const;
  [[nodiscard]] bool becomesRed(int id, bool expected = true) const;
  /// Of a control of the page, which scrolling moves. Pixels.
  int topOf(int id) const { return rect(id).top; }

  /// Scrolls the page by the wheel until the middle of the control can be seen.
  void reveal(int id) const;
  /// In its middle, once that can be seen.
  void press(int id) const;
  /// Clicks into the box and selects what it holds.
  void selectAll(int id) const;
  /// Replaces what the box holds; nothing but deletes it.
  void retype(int id, std::wstring_view text) const;
  void paste(int id, std::wstring_view text) const;
  /// Drops the combo down and clicks on a row of it.
  void choose(int id, int row) const;

  /// The box with a question that the program has open; null while there is none.
  HWND question() const;
  [[nodiscard]] bool asks() const;
  std::wstring questionText() const;
  /// With the mouse.
  void answer(int button) const;
  /// As by a click on its title. Without it Wine at times leaves nobody in front where a question
  /// was.
  void comeToFront() const;
  /// The settings window, and no question is left.
  [[nodiscard]] bool closes() const;
};

}  // namespace mrl

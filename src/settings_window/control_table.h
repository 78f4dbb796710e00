// Every control of the settings window, in the order of creation, which is also that of the Tab
// key. Constant data, any thread.
#pragma once

#include <optional>
#include <span>

#include "settings_window/control_ids.h"

namespace mrl {

enum class ControlKind {
  Tabs,
  Section,  // a button of the sidebar
  Button,
  Check,
  Radio,
  Title,       // static text at the head of a card
  Caption,     // other static text, on one line
  Paragraph,   // the same, on several lines if need be
  TimerLine,   // static text on one line, cut with an ellipsis
  StatusLine,  // static text, owner-drawn
  NumberBox,
  TextBox,
  AddressBox,  // read-only, several lines
  Combo,       // drop-down list, owner-drawn
  List,        // owner-drawn
  PreviewHost,
  Preview,  // child of the host
  QrCode,
};

inline constexpr int kPageCount = 5;
inline constexpr int kRemotePage = 3;
inline constexpr int kEveryPage = -1;
inline constexpr int kNoPage = -2;

struct Control {
  int id;
  ControlKind kind;
  const char16_t* text;
  int page;                                    // 0 to 4, kEveryPage or kNoPage
  const char16_t* cue = nullptr;               // shown in an empty box
  bool startsGroup = false;                    // that the arrow keys go round in
  std::span<const char16_t* const> rows = {};  // of a combo; the names of the tabs
};

/// A page's control is a child of the content pane, any other of the window itself.
constexpr bool isOnPane(const Control& control) { return control.page >= 0; }
constexpr bool isEditBox(ControlKind kind) {
  return kind == ControlKind::NumberBox || kind == ControlKind::TextBox ||
         kind == ControlKind::AddressBox;
}
/// Whether the Tab key stops there.
constexpr bool isInteractive(ControlKind kind) {
  return kind == ControlKind::Tabs || kind == ControlKind::Section || kind == ControlKind::Button ||
         kind == ControlKind::Check || kind == ControlKind::Radio || isEditBox(kind) ||
         kind == ControlKind::Combo || kind == ControlKind::List;
}

/// A button that shows the colour of the box beside it, and picks another.
struct ColourPicker {
  int id;
  int box;
  int label;
};
inline constexpr ColourPicker kColourPickers[] = {
    {kPickForegroundButton, kForegroundBox, kForegroundLabel},
    {kPickBackgroundButton, kBackgroundBox, kBackgroundLabel},
    {kPickAlertButton, kAlertBox, kAlertLabel},
};
/// The box of a picker; empty for any other control.
std::optional<int> colourBoxOf(int id);

/// What a screen reader calls a control whose own text, or the label right before it, is not enough
/// to know it by.
struct SpokenName {
  int id;
  const char16_t* name;
};
std::span<const SpokenName> spokenNames();

std::span<const Control> allControls();
/// Null where there is none of that number.
const Control* findControl(int id);

}  // namespace mrl

// What the controls of the settings window look like, computed without a screen: colours, fonts and
// the drawing of a control in a given state. Pixels; colours are 0xRRGGBB. Pure functions, any
// thread.
#pragma once

#include <string>
#include <string_view>

#include "settings_window/drawing.h"

namespace mrl {

inline constexpr uint32_t kWhite = 0xFFFFFF;
inline constexpr uint32_t kInk = 0x1E2B42;    // primary text
inline constexpr uint32_t kMuted = 0x707E94;  // secondary text, disabled text in boxes
inline constexpr uint32_t kAccent = 0x226BFA;
inline constexpr uint32_t kAccentHover = 0x195CE7;
inline constexpr uint32_t kAccentDown = 0x1650CB;
inline constexpr uint32_t kSelectFill = 0xE8F1FF;
inline constexpr uint32_t kPageFill = 0xF5F7FB;
inline constexpr uint32_t kReadOnlyFill = 0xF6F8FC;
inline constexpr uint32_t kHairline = 0xDCE3ED;
inline constexpr uint32_t kCardLine = 0xE6EBF3;
inline constexpr uint32_t kWarnText = 0xA06812;     // the status line while input is not applied
inline constexpr uint32_t kInvalidLine = 0xCC424A;  // around an invalid box
inline constexpr uint32_t kHostDark = 0x273346;     // behind a preview of text alone
inline constexpr uint32_t kHostLight = 0xEEF3F9;

struct Typeface {
  const char16_t* family;
  int units;  // height in 1/96 inch, without internal leading
  int weight;
};
/// In the order of Face.
inline constexpr Typeface kTypefaces[] = {
    {u"Segoe UI", 14, 400}, {u"Segoe UI", 14, 600}, {u"Segoe UI", 12, 400},
    {u"Segoe UI", 26, 600}, {u"Segoe UI", 17, 600}, {u"Consolas", 25, 600},
};
/// The font of a control.
Face faceOf(int id);

/// Row heights in 1/96 inch.
inline constexpr int kComboRowUnits = 32;
inline constexpr int kFileRowUnits = 54;

struct ControlState {
  int id = 0;
  Size size;  // of the client area
  std::u16string text;
  bool isEnabled = true;
  bool isChecked = false;
  bool isPressed = false;
  bool isHovered = false;
  bool isFocused = false;
  bool isActive = false;           // a button that is on; the section whose page is shown
  std::u16string colourText = {};  // of a colour picker: what its box holds
};
/// A button, a check, a radio, a section or a combo.
Drawing drawControl(const ControlState& control, int dpi);

struct BoxState {
  Size size;  // with the frame
  bool isReadOnly = false;
  bool isInvalid = false;
  bool isFocused = false;
};
/// The frame of an edit box. It covers the client area too, which the painter has to exclude.
Drawing drawBoxFrame(const BoxState& box, int dpi);
/// What our frame leaves of `client`, the client area that the system computed.
Rect withinBoxFrame(const Rect& client, int dpi);

/// The kind of control that asks for its colours before the system paints it.
enum class ColourAsker { Box, List, ScrollBar, Static };
struct ChildState {
  int id = 0;
  bool isEnabled = true;
  bool isReadOnly = false;
  bool hasUnsavedInput = false;  // state of the form, not of the control
};
struct ChildColours {
  uint32_t text = kMuted;
  uint32_t fill = kWhite;
  bool isTransparent = false;  // the text is drawn without a background
  bool operator==(const ChildColours&) const = default;
};
ChildColours childColours(ColourAsker asker, const ChildState& child);

}  // namespace mrl

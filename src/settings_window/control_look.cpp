#include "settings_window/control_look.h"

#include <algorithm>
#include <cwchar>

#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"

namespace mrl {
namespace {

struct ButtonLook {
  uint32_t rest, hover, pressed;
  std::optional<uint32_t> outline;  // empty: same as the fill
  uint32_t text;
  Face face;
};
constexpr ButtonLook kGreen{0x0D806A, 0x0B705E, 0x095D4E, {}, kWhite, Face::BodyStrong};
constexpr ButtonLook kPrimary{kAccent, kAccentHover, kAccentDown, {}, kWhite, Face::BodyStrong};
constexpr ButtonLook kDanger{0xFFF8F8, 0xFCEFEF, 0xF7E0E0, 0xE1BEBE, 0x9C343A, Face::Body};
constexpr ButtonLook kCaution{0xFFFAF0, 0xFDF5E5, 0xF6E8CF, 0xDEC9A0, 0x7E5314, Face::Body};
constexpr ButtonLook kNormal{kWhite, 0xF5F8FD, 0xE8EEF7, kHairline, kInk, Face::Body};

const ButtonLook& buttonLook(const ControlState& button) {
  switch (button.id) {
    case kToggleButton: return button.isActive ? kCaution : kGreen;
    case kServiceButton: return button.isActive ? kDanger : kPrimary;
    case kApplyAll:
    case kApplyPortButton:
    case kPlayFileButton:
    case kBeginShowButton:
    case kCurrentSlideButton: return kPrimary;
    case kCloseFileButton:
    case kExitShowButton: return kDanger;
    case kResetButton: return kCaution;
    default: return kNormal;
  }
}

/// Half-typed text gives a colour too, from the part that parses as a number.
uint32_t swatchColour(const std::u16string& text) {
  if (text.empty()) return 0;
  const std::wstring digits(text.begin() + 1, text.end());
  const auto read = std::wcstoull(digits.c_str(), nullptr, 16);
  return static_cast<uint32_t>(std::min<unsigned long long>(read, UINT32_MAX)) & 0xFFFFFF;
}

Drawing drawButton(const ControlState& button, Scale scale) {
  const ButtonLook& look = buttonLook(button);
  const Rect client = wholeOf(button.size);
  RoundedRect shape{insetBy(client, 1), scale(7)};
  shape.fill = button.isPressed ? look.pressed : button.isHovered ? look.hover : look.rest;
  shape.outline = look.outline.value_or(shape.fill);
  if (!button.isEnabled) {
    shape.fill = 0xF5F7FA;
    shape.outline = 0xE8ECF2;
  }
  if (button.isFocused) {
    shape.outline = kAccent;
    shape.outlineWidth = scale(2);
  }
  Drawing drawing{Area{client, kWhite}, shape};
  if (colourBoxOf(button.id)) {
    drawing.push_back(
        RoundedRect{insetBy(client, scale(9)), scale(4), swatchColour(button.colourText), {}});
  } else {
    drawing.push_back(Label{button.text,
                            {scale(8), 0, client.right - scale(8), client.bottom},
                            look.face,
                            button.isEnabled ? look.text : 0xA5AEBB,
                            true});
  }
  return drawing;
}

Drawing drawRadio(const ControlState& radio, Scale scale) {
  const Rect client = wholeOf(radio.size);
  const bool on = radio.isChecked;
  const uint32_t fill = on ? kSelectFill : radio.isHovered ? 0xF8FAFD : kWhite;
  const Rect ring = squareAt({scale(12), (client.bottom - scale(16)) / 2}, scale(16));
  const uint32_t ringColour = !radio.isEnabled ? kHairline : on ? kAccent : kMuted;
  Drawing drawing{Area{client, kWhite},
                  RoundedRect{client, scale(7), fill, on ? kAccent : kHairline},
                  Ring{ring, ringColour, scale(1)}};
  if (on) {
    const int gap = (scale(16) - scale(8)) / 2;
    const Rect dot = squareAt({ring.left + gap, ring.top + gap}, scale(8));
    drawing.push_back(Disc{dot, radio.isEnabled ? kAccent : kMuted});
  }
  drawing.push_back(Label{radio.text,
                          {scale(38), 0, client.right, client.bottom},
                          Face::Body,
                          radio.isEnabled ? kInk : kMuted});
  return drawing;
}

/// A check box is a switch at the right end of its text.
Drawing drawSwitch(const ControlState& check, Scale scale) {
  const Rect client = wholeOf(check.size);
  const bool on = check.isChecked;
  const int right = client.right - scale(2);
  const int top = (client.bottom - scale(20)) / 2;
  const Rect track{right - scale(34), top, right, top + scale(20)};
  const uint32_t trackColour = !check.isEnabled ? 0xE9EDF3 : on ? kAccent : 0xD7DFEB;
  const Point knob{track.left + scale(on ? 17 : 3), top + scale(3)};
  Drawing drawing{Area{client, kWhite}, RoundedRect{track, scale(20) / 2, trackColour, {}},
                  Disc{squareAt(knob, scale(14)), kWhite},
                  Label{check.text,
                        {0, 0, track.left - scale(12), client.bottom},
                        Face::Body,
                        check.isEnabled ? kInk : 0x9EA8B8}};
  if (check.isFocused) drawing.push_back(FocusMark{insetBy(client, scale(2))});
  return drawing;
}

Drawing drawSection(const ControlState& section, Scale scale) {
  const Rect client = wholeOf(section.size);
  const bool active = section.isActive;
  RoundedRect shape{client, scale(8)};
  shape.fill = active ? kSelectFill : section.isHovered ? 0xF3F6FB : kWhite;
  if (section.isFocused) shape.outline = kAccent;
  return {Area{client, kWhite}, shape,
          Glyph{{scale(14), scale(12), scale(36), scale(34)},
                section.id - kFirstSection,
                active ? kAccent : kMuted},
          Label{section.text,
                {scale(48), 0, client.right - scale(10), client.bottom},
                active ? Face::BodyStrong : Face::Body,
                active ? kAccent : 0x4E5E75}};
}

Drawing drawCombo(const ControlState& combo, Scale scale) {
  const Rect client = wholeOf(combo.size);
  const Point middle{client.right - scale(18), client.bottom / 2};
  const Point tip{middle.x, middle.y + scale(2)};
  const int top = middle.y - scale(2);
  RoundedRect shape{client, scale(7), kWhite, kHairline};
  if (combo.isFocused) {
    shape.outline = kAccent;
    shape.outlineWidth = scale(2);
  }
  return {Area{client, kWhite}, shape,
          Label{combo.text,
                {scale(12), 0, client.right - scale(32), client.bottom},
                Face::Body,
                combo.isEnabled ? kInk : kMuted},
          Line{{middle.x - scale(4), top}, tip, kMuted, scale(1)},
          Line{tip, {middle.x + scale(4), top}, kMuted, scale(1)}};
}

}  // namespace

Face faceOf(int id) {
  if (id == kMinutesBox || id == kSecondsBox) return Face::Digits;
  const Control* control = findControl(id);
  switch (control ? control->kind : ControlKind::Button) {
    case ControlKind::TimerLine: return Face::BodyStrong;
    case ControlKind::Title: return Face::SectionTitle;
    case ControlKind::Caption:
    case ControlKind::Paragraph:
    case ControlKind::StatusLine: return Face::Small;
    default: return Face::Body;
  }
}

Drawing drawControl(const ControlState& control, int dpi) {
  const Scale scale{dpi};
  const Control* row = findControl(control.id);
  switch (row ? row->kind : ControlKind::Button) {
    case ControlKind::Section: return drawSection(control, scale);
    case ControlKind::Radio: return drawRadio(control, scale);
    case ControlKind::Check: return drawSwitch(control, scale);
    case ControlKind::Combo: return drawCombo(control, scale);
    default: return drawButton(control, scale);
  }
}

Drawing drawBoxFrame(const BoxState& box, int dpi) {
  const Scale scale{dpi};
  const Rect whole = wholeOf(box.size);
  RoundedRect shape{whole, scale(7), box.isReadOnly ? kReadOnlyFill : kWhite, kHairline};
  if (box.isFocused) shape.outline = kAccent;
  if (box.isInvalid) shape.outline = kInvalidLine;
  if (box.isFocused || box.isInvalid) shape.outlineWidth = scale(2);
  return {Area{whole, kWhite}, shape};
}

Rect withinBoxFrame(const Rect& client, int dpi) {
  const Scale scale{dpi};
  Rect inner = client;
  if (client.width() > scale(40)) {
    inner.left += scale(10);
    inner.right -= scale(10);
  }
  if (client.height() > scale(26)) {
    inner.top += scale(7);
    inner.bottom -= scale(6);
  }
  return inner;
}

ChildColours childColours(ColourAsker asker, const ChildState& child) {
  const uint32_t boxText = child.isEnabled ? kInk : kMuted;
  switch (asker) {
    case ColourAsker::Box: return {boxText, child.isReadOnly ? kReadOnlyFill : kWhite};
    case ColourAsker::List: return {boxText, kWhite};
    case ColourAsker::ScrollBar: return {kMuted, kPageFill};
    case ColourAsker::Static: break;
  }
  if (child.id == kStatusText && child.hasUnsavedInput) return {kWarnText, kWhite, true};
  const Control* control = findControl(child.id);
  const bool strong =
      control && (control->kind == ControlKind::Title || control->kind == ControlKind::TimerLine);
  return {strong ? kInk : kMuted, kWhite, true};
}

}  // namespace mrl

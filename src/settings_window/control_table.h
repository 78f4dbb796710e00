// Every control of the settings window, in order of creation, which is also the Tab order: its
// text, its place, and which setting it edits. Constant data, any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>

#include "settings/settings.h"
#include "settings_window/control_ids.h"

namespace mrl {

enum class ControlKind {
  Tabs,
  Section,  // a button of the sidebar
  Button,
  Check,
  Radio,
  Title,       // static text, the heading of a card
  Caption,     // other static text, on one line
  Paragraph,   // the same, wrapped if necessary
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
inline constexpr int kStagePage = 2;
inline constexpr int kRemotePage = 3;
inline constexpr int kEveryPage = -1;
inline constexpr int kNoPage = -2;

/// What a length grows with: the width of a page's card, a part of it, or that of a stage's card.
enum class Share { None, All, Half, Third, Fifth, Stage };

/// In units of 1/96 inch, as all lengths here.
struct Length {
  constexpr Length(int fixed) : plus(fixed) {}  // NOLINT(google-explicit-constructor): in tables
  constexpr explicit Length(Share of) : share(of) {}

  Share share = Share::None;
  int times = 1;
  int plus = 0;
};
constexpr Length operator+(Length length, int plus) {
  length.plus += plus;
  return length;
}
constexpr Length operator-(Length length, int minus) { return length + -minus; }
constexpr Length operator*(int times, Length length) {
  length.times = times;
  return length;
}

inline constexpr int kDrop = 190;  // the height of a combo, which includes its open list

/// On the page, or relative to the card of stage 1 or 2.
struct Place {
  Length x = 0;
  int y = 0;
  Length width = 0;
  int height = 0;
  int stage = 0;
};

/// A white card behind the controls, as wide as the page. The stages' cards depend on the width.
struct Card {
  int top;
  int height;
};
struct PageCards {
  std::span<const Card> cards;
  int extent = 0;  // the height of the whole page
};
const PageCards& cardsOf(int page);

struct Control {
  int id;
  ControlKind kind;
  const char16_t* text;
  int page;                                    // 0 to 4, kEveryPage or kNoPage
  Place place = {};                            // on its page; the preview's depends on its size
  const char16_t* cue = nullptr;               // shown in an empty box
  bool startsGroup = false;                    // of controls that the arrow keys move within
  std::span<const char16_t* const> rows = {};  // rows of a combo, or names of the tabs
};

/// Controls of a page are children of the content pane (the preview: of its host), all others of
/// the window itself.
constexpr bool isOnPane(const Control& control) { return control.page >= 0; }
constexpr bool isEditBox(ControlKind kind) {
  return kind == ControlKind::NumberBox || kind == ControlKind::TextBox ||
         kind == ControlKind::AddressBox;
}
/// Whether it is a Tab stop.
constexpr bool isInteractive(ControlKind kind) {
  return kind == ControlKind::Tabs || kind == ControlKind::Section || kind == ControlKind::Button ||
         kind == ControlKind::Check || kind == ControlKind::Radio || isEditBox(kind) ||
         kind == ControlKind::Combo || kind == ControlKind::List;
}

/// A button that shows the colour of the box beside it and opens the colour picker.
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

/// The accessible name of a control that its own text, or the label right before it, doesn't
/// identify.
struct SpokenName {
  int id;
  const char16_t* name;
};
std::span<const SpokenName> spokenNames();

std::span<const Control> allControls();
/// Null for an unknown id.
const Control* findControl(int id);

// --- which control edits which setting ---

enum class FieldKind {
  Flag,
  DownRadio,   // one of the pair of radio buttons
  Number,      // whole, within the range
  Time,        // boxes of minutes and seconds; stored in seconds
  Colour,      // #RRGGBB
  ShapeRow,    // stored as the row's index
  FontWeight,  // kFontWeights[row]
  FontName,    // any text that is not empty
  Folder,      // this and the next two may be empty: no path chosen
  File,
  StageSound,
  SkipList,  // edited in the list of files, has no box
};

/// A member of Settings, or of one of its two stages.
template <class T>
struct FieldOf {
  T Settings::*direct = nullptr;
  PromptStage Settings::*stage = nullptr;
  T PromptStage::*ofStage = nullptr;

  [[nodiscard]] T& in(Settings& record) const {
    return stage ? record.*stage.*ofStage : record.*direct;
  }
  [[nodiscard]] const T& in(const Settings& record) const {
    return stage ? record.*stage.*ofStage : record.*direct;
  }
};
using FlagField = FieldOf<bool>;
using NumberField = FieldOf<uint32_t>;
using TextField = FieldOf<std::u16string>;

struct Field {
  int id;  // of the control; for a time the box of the minutes
  FieldKind kind;
  std::variant<std::monostate, FlagField, NumberField, TextField> place;
  int secondsId = 0;  // for a time, the box of the seconds

  [[nodiscard]] const FlagField& flag() const { return std::get<FlagField>(place); }
  [[nodiscard]] const NumberField& number() const { return std::get<NumberField>(place); }
  [[nodiscard]] const TextField& text() const { return std::get<TextField>(place); }
};

inline constexpr uint32_t kMostMinutes = 999;
inline constexpr uint32_t kMostSeconds = 59;
static_assert(kMostMinutes * 60 + kMostSeconds == kMaxDurationSeconds);
inline constexpr uint32_t kFontWeights[] = {300, 400, 700, 900};
inline constexpr int kOtherWeightRow = 2;
inline constexpr int kShapeCount = 3;
static_assert(kShapeCount == rowOf(kSettings, &Settings::shape).range.highest + 1);

std::span<const Field> allFields();
/// Null for a control that edits no field.
const Field* findField(int id);
/// What the box of a number takes.
Range rangeOf(const NumberField& field);
/// The id that an edit is queued under: for a box of seconds its box of minutes, else `id`.
int queuedId(int id);

}  // namespace mrl

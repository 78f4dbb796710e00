// Which control edits which field of Settings: the one table used to check input and to copy
// between controls and form. Constant data, any thread.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>

#include "settings/settings.h"
#include "settings_window/control_ids.h"

namespace mrl {

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

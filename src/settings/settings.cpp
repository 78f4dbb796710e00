#include "settings/settings.h"

namespace mrl {
namespace {

// What the tables promise, so that a member, a range or a place can't be forgotten.

struct AnyValue {
  template <class Value>
  operator Value() const;  // NOLINT(google-explicit-constructor): stands for a value of any type
};

/// The most values that the record can be initialised with.
template <class Record, class... Members>
constexpr size_t memberCount() {
  if constexpr (requires { Record{Members()..., AnyValue()}; }) {
    return memberCount<Record, Members..., AnyValue>();
  } else {
    return sizeof...(Members);
  }
}

template <class Record, size_t kCount>
constexpr bool hasOneRowPerMember(const Setting<Record> (&rows)[kCount], size_t withoutRow) {
  for (const Setting<Record>& row : rows) {
    if (&rowOf(rows, row.member) != &row) return false;
  }
  return kCount + withoutRow == memberCount<Record>();
}

template <class Record, size_t kCount>
constexpr bool hasRangePerNumber(const Setting<Record> (&rows)[kCount]) {
  for (const Setting<Record>& row : rows) {
    const bool isNumber = std::holds_alternative<uint32_t Record::*>(row.member);
    if (isNumber != (row.range.lowest < row.range.highest)) return false;
  }
  return true;
}

/// The places in the remote form are 0, 1, 2 ...
template <class Record, size_t kCount>
constexpr bool hasOneRowPerPlace(const Setting<Record> (&rows)[kCount]) {
  size_t inForm = 0;
  size_t lastPlace = 0;
  bool taken[kCount] = {};
  for (const Setting<Record>& row : rows) {
    const auto [place, name] = row.remote;
    if (!name) continue;
    if (place >= kCount || taken[place]) return false;
    taken[place] = true;
    ++inForm;
    if (place > lastPlace) lastPlace = place;
  }
  return lastPlace + 1 == inForm;
}

constexpr size_t kWithoutRow = 3;  // skipList, prompt1, prompt2
static_assert(hasOneRowPerMember(kSettings, kWithoutRow), "a member has no row, or two");
static_assert(hasOneRowPerMember(kStageSettings, 0), "a member has no row, or two");
static_assert(hasRangePerNumber(kSettings), "a number has no range, or a flag or text has");
static_assert(hasRangePerNumber(kStageSettings), "a number has no range, or a flag or text has");
static_assert(hasOneRowPerPlace(kSettings), "two names share a place, or there is a gap");
static_assert(hasOneRowPerPlace(kStageSettings), "two names share a place, or there is a gap");

}  // namespace

bool hasBlackConflict(const Settings& settings) {
  return settings.black && (settings.exitShow || settings.switchPpt);
}

}  // namespace mrl

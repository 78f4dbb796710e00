// Checks our own tables against the system's.
#include <windows.h>

#include <gtest/gtest.h>

#include "base/char_rules.h"

namespace mrl {
namespace {

WORD typeOf(wchar_t unit) {
  WORD type = 0;
  GetStringTypeW(CT_CTYPE1, &unit, 1, &type);
  return type;
}

TEST(CharRulesWinTest, EveryUnitHasTheTypeThatTheSystemGivesIt) {
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const WORD type = typeOf(static_cast<wchar_t>(unit));
    const auto own = static_cast<char16_t>(unit);
    EXPECT_EQ(isAlphanumeric(own), (type & (C1_ALPHA | C1_DIGIT)) != 0) << std::hex << unit;
    EXPECT_EQ(isSpace(own), (type & C1_SPACE) != 0) << std::hex << unit;
  }
}

TEST(CharRulesWinTest, EveryUnitEqualsItsUpperAndLowerCaseWhereTheSystemSaysSo) {
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const auto wide = static_cast<wchar_t>(unit);
    const auto own = static_cast<char16_t>(unit);
    for (const DWORD flag : {LCMAP_UPPERCASE, LCMAP_UPPERCASE | LCMAP_LINGUISTIC_CASING,
                             LCMAP_LOWERCASE, LCMAP_LOWERCASE | LCMAP_LINGUISTIC_CASING}) {
      wchar_t mapped = wide;
      LCMapStringEx(LOCALE_NAME_INVARIANT, flag, &wide, 1, &mapped, 1, nullptr, nullptr, 0);
      const bool equal = CompareStringOrdinal(&wide, 1, &mapped, 1, TRUE) == CSTR_EQUAL;
      const auto ownMapped = static_cast<char16_t>(mapped);
      EXPECT_EQ(equalsIgnoringCase({&own, 1}, {&ownMapped, 1}), equal) << std::hex << unit;
    }
  }
}

}  // namespace
}  // namespace mrl

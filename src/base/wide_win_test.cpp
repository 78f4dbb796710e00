#include "base/wide_win.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

TEST(WideWinTest, EveryUnitGoesBothWaysUnchanged) {
  std::u16string text;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) text += static_cast<char16_t>(unit);
  const std::wstring wide = wideFrom(text);
  ASSERT_EQ(wide.size(), text.size());
  EXPECT_EQ(wide[0xFF21], L'\xFF21');
  EXPECT_EQ(u16From(wide), text);
}

}  // namespace
}  // namespace mrl

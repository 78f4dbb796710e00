#include "base/gdi_win.h"

#include <gtest/gtest.h>

#include <string>

namespace mrl {
namespace {

class SavedContextTest : public testing::Test {
 protected:
  SavedContextTest() : dc(CreateCompatibleDC(nullptr)) {}
  ~SavedContextTest() override { DeleteDC(dc); }

  HDC dc;
};

TEST_F(SavedContextTest, WhatItOwnsIsSelectedMeanwhileAndDeletedWithIt) {
  const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
  {
    SavedContext saved(dc);
    saved.selectAndOwn(brush);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), brush);
    EXPECT_EQ(GetObjectType(brush), static_cast<DWORD>(OBJ_BRUSH));
  }
  EXPECT_EQ(GetObjectType(brush), 0U);
}

TEST_F(SavedContextTest, TheContextIsLeftAsItWas) {
  const HGDIOBJ brush = GetCurrentObject(dc, OBJ_BRUSH);
  SetTextColor(dc, RGB(4, 5, 6));
  {
    SavedContext saved(dc);
    saved.selectAndOwn(CreateSolidBrush(RGB(1, 2, 3)));
    SetTextColor(dc, RGB(7, 8, 9));
  }
  EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), brush);
  EXPECT_EQ(GetTextColor(dc), RGB(4, 5, 6));
}

TEST(MakeFontTest, ItIsAsHighAsTheResolutionAsksAndAsHeavyAsWanted) {
  const Font font = makeFont(u"Segoe UI", 14, FW_BOLD, 144);
  LOGFONTW made{};
  ASSERT_NE(GetObjectW(font.get(), sizeof made, &made), 0);
  EXPECT_EQ(std::wstring(made.lfFaceName), L"Segoe UI");
  EXPECT_EQ(made.lfHeight, -21);
  EXPECT_EQ(made.lfWeight, FW_BOLD);
  EXPECT_EQ(made.lfQuality, CLEARTYPE_QUALITY);
}

}  // namespace
}  // namespace mrl

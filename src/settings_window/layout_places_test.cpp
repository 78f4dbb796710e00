// The position of each control of each page, for many window sizes, on three monitors.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>

#include "settings_window/control_table.h"
#include "settings_window/layout.h"

namespace mrl {
namespace {

using Length = std::optional<int>;
constexpr std::nullopt_t kAny = std::nullopt;  // not checked

/// Units of 1/96 inch.
struct Row {
  int id;
  Length x, y, width, height;
};
using Rows = std::vector<Row>;

int scaled(int value, int by, int per) { return (value * by + per / 2) / per; }

/// What all positions are derived from.
struct Values {
  Values(Size client, int dpi)
      : windowWidth(scaled(client.width, 96, dpi)), windowHeight(scaled(client.height, 96, dpi)) {}

  int windowWidth;
  int windowHeight;
  int paneWidth = std::max(windowWidth - 216, 600);
  int paneHeight = windowHeight - 248 < 221 ? 220 : windowHeight - 248;
  int cards = paneWidth - 32;
  int half = (cards - 72) / 2;
  int right = cards - 8;
  int third = (cards - 72) / 3;
  int fifth = (cards - 96) / 5;
};

Rows frameRows(const Values& v) {
  Rows rows = {{0, 200, 166, v.paneWidth, v.paneHeight},
               {280, 20, v.windowHeight - 100, 144, 190},
               {277, 216, 12, std::max(v.windowWidth - 548, 220), 44},
               {278, v.windowWidth - 310, 14, 136, 40},
               {279, v.windowWidth - 160, 14, 136, 40},
               {226, 216, v.windowHeight - 50, std::max(v.windowWidth - 352, 200), 34},
               {201, v.windowWidth - 114, v.windowHeight - 52, 90, 40}};
  for (int i = 0; i < 5; ++i) rows.push_back({500 + i, 12, 112 + 54 * i, 160, 46});
  return rows;
}

Rows timingRows(const Values& v) {
  return {{600, 40, 20, v.cards - 48, 28},
          {601, 40, 62, 220, 20},
          {241, 40, 88, 100, 56},
          {602, 148, 104, 28, 26},
          {242, 188, 88, 100, 56},
          {603, 296, 104, 28, 26},
          {203, 348, 96, 128, 42},
          {243, 488, 96, 128, 42},
          {244, 40, 168, v.half, 34},
          {205, v.half + 64, 168, v.half, 34},
          {245, 40, 214, v.half, 34},
          {604, 40, 308, v.cards - 48, 28},
          {282, 40, 348, v.cards - 48, 38},
          {209, 40, 396, v.half, 34},
          {208, v.half + 64, 396, v.half, 34},
          {206, 40, 444, v.half, 34},
          {605, v.half + 64, 436, v.half - 88, 44},
          {248, v.right - 80, 440, 80, 38},
          {207, 40, 536, v.half, 36},
          {606, v.half + 64, 532, v.half - 88, 44},
          {254, v.right - 80, 536, 80, 38},
          {252, 40, 592, v.cards - 188, 40},
          {253, v.right - 124, 592, 124, 40},
          {210, 40, 720, v.cards - 48, 36},
          {224, 40, 772, v.cards - 188, 40},
          {225, v.right - 124, 772, 124, 40},
          {607, 40, 834, v.cards - 170, 30},
          {247, v.right - 96, 830, 96, 38}};
}

Rows lookRows(const Values& v) {
  Rows rows = {{610, 40, 20, kAny, kAny},
               {651, 40, 53, kAny, kAny},
               {255, v.right - 174, 24, 174, kAny},
               {611, 40, 80, v.cards - 48, 112},
               {227, 180, 210, 78, 38},
               {228, 270, 210, 78, 38},
               {229, v.right - 120, 210, 120, kAny},
               {259, v.half - 46, 446, kAny, kAny},
               {260, v.half + 64, kAny, kAny, kAny},
               {262, 40, 654, v.half, kAny},
               {263, v.half + 64, 654, v.half, kAny},
               {261, 136, 708, kAny, kAny},
               {266, v.half + 64, 710, kAny, kAny},
               {264, v.right - 190, 846, 88, kAny},
               {265, v.right - 88, 846, 88, kAny}};
  for (int c = 0; c < 3; ++c) {
    const int x = 40 + c * (v.third + 12);
    rows.push_back({613 + c, x, 352, kAny, kAny});
    rows.push_back({256 + c, x, 382, v.third - 50, 40});
    rows.push_back({267 + c, x + v.third - 42, 382, 42, kAny});
  }
  return rows;
}

struct Stage {
  int left, top, width;
};
Stage stageOf(const Values& v, int index) {
  if (v.cards < 660) return {16, 454 * index, v.cards};
  const int width = (v.cards - 20) / 2;
  return {16 + index * (width + 20), 0, width};
}

Rows stageRows(const Values& v) {
  Rows rows;
  for (int index = 0; index < 2; ++index) {
    const int base = 400 + 20 * index;
    const int label = 630 + 3 * index;
    const auto [left, top, width] = stageOf(v, index);
    const Rows stage = {{label, left + 24, top + 22, width - 150, 28},
                        {base, left + width - 120, top + 20, 96, 34},
                        {label + 1, left + 24, top + 70, width - 48, 24},
                        {base + 1, left + 24, top + 100, 100, 40},
                        {base + 2, left + 140, top + 100, 100, 40},
                        {base + 3, left + 24, top + 156, width - 48, 34},
                        {base + 4, left + 24, top + 196, width - 48, 34},
                        {base + 5, left + 24, top + 236, width - 48, 34},
                        {base + 6, left + 24, top + 280, width - 150, 40},
                        {base + 7, left + width - 114, top + 280, 90, 40},
                        {label + 2, left + 24, top + 330, width - 48, 42},
                        {base + 8, left + 24, top + 376, 100, 38},
                        {base + 9, left + 140, top + 376, 100, 38}};
    rows.insert(rows.end(), stage.begin(), stage.end());
  }
  return rows;
}

Rows remoteRows(const Values& v) {
  return {{283, 40, 62, 156, 156},      {222, 232, 62, v.cards - 240, 50},
          {272, 232, 172, 120, kAny},   {110, kAny, 172, 132, kAny},
          {270, 40, 288, 120, kAny},    {512, 172, 288, 112, kAny},
          {271, 300, kAny, kAny, kAny}, {221, kAny, 346, 180, kAny},
          {511, kAny, 346, 150, kAny},  {643, kAny, 397, kAny, kAny}};
}

Rows presentationRows(const Values& v) {
  Rows rows = {{211, 40, 70, v.cards - 198, kAny}, {212, v.right - 134, 70, 134, kAny},
               {281, kAny, 126, kAny, kAny},       {213, 40, 254, v.cards - 48, 204},
               {273, kAny, 204, kAny, kAny},       {246, kAny, 474, kAny, kAny},
               {274, 40, 526, 120, kAny},          {215, 172, 526, 120, kAny},
               {275, 304, 526, 120, kAny}};
  for (int c = 0; c < 5; ++c) rows.push_back({216 + c, 40 + c * (v.fifth + 12), 652, v.fifth, 40});
  return rows;
}

/// A card's top and height in units.
struct Span {
  int top, height;
};
struct Page {
  Rows (*rows)(const Values& values);
  bool isComplete;  // every control of the page is listed
  std::vector<Span> cards;
  int extent;
};
const Page kPages[] = {
    {timingRows, true, {{0, 264}, {288, 206}, {518, 160}, {702, 190}}, 916},
    {lookRows, false, {{0, 260}, {284, 248}, {556, 244}, {824, 98}}, 946},
    {stageRows, true, {}, 0},
    {remoteRows, false, {{0, 430}}, 430},
    {presentationRows, false, {{0, 164}, {188, 376}, {588, 124}}, 736},
};

/// Every page, in windows below, at and above each threshold of the formulas, at the top and
/// scrolled. The parameter is the monitor's DPI.
class LayoutPlacesTest : public ::testing::TestWithParam<int> {
 protected:
  static constexpr int kWidths[] = {500, 552, 640, 767, 768, 815,  816,
                                    817, 900, 907, 908, 909, 1040, 1601};
  static constexpr int kHeights[] = {400, 467, 468, 469, 470, 620, 741, 1200};
  static constexpr int kScrolls[] = {0, 37};

  void forEachWindow(const std::function<void()>& check) {
    dpi = GetParam();
    for (const int width : kWidths) {
      for (const int height : kHeights) {
        client = {scaled(width, dpi, 96), scaled(height, dpi, 96)};
        for (const int asked : kScrolls) {
          for (page = 0; page < 5; ++page) {
            SCOPED_TRACE(testing::Message() << "page " << page << " of " << client.width << " by "
                                            << client.height << ", scrolled by " << asked);
            layout = layOut(client, dpi, page, asked);
            check();
          }
        }
      }
    }
  }
  [[nodiscard]] Values values() const { return {client, dpi}; }
  [[nodiscard]] int pixels(int units) const { return scaled(units, dpi, 96); }

  void expectAt(const std::vector<Placement>& placements, const Row& row, int scroll) const {
    const auto found = std::ranges::find(placements, row.id, &Placement::id);
    ASSERT_NE(found, placements.end()) << row.id;
    const Rect& rect = found->rect;
    if (row.x) {
      EXPECT_EQ(rect.left, pixels(*row.x)) << row.id;
    }
    if (row.y) {
      EXPECT_EQ(rect.top, pixels(*row.y) - scroll) << row.id;
    }
    if (row.width) {
      EXPECT_EQ(rect.width(), pixels(*row.width)) << row.id;
    }
    if (row.height) {
      EXPECT_EQ(rect.height(), pixels(*row.height)) << row.id;
    }
  }
  [[nodiscard]] Cards expectedCards() const {
    const Values v = values();
    Cards cards;
    const auto add = [&](int left, int top, int width, int height) {
      const int x = pixels(left);
      const int y = pixels(top) - layout.scroll;
      cards.push_back({x, y, x + pixels(width), y + pixels(height)});
    };
    for (const Span& span : kPages[page].cards) add(16, span.top, v.cards, span.height);
    for (int index = 0; page == 2 && index < 2; ++index) {
      const Stage stage = stageOf(v, index);
      add(stage.left, stage.top, stage.width, 430);
    }
    return cards;
  }
  [[nodiscard]] int expectedExtent() const {
    const int stages = values().cards < 660 ? 908 : 454;
    return pixels(page == 2 ? stages : kPages[page].extent);
  }

  int dpi = 96;
  Size client;
  int page = 0;
  PageLayout layout;
};

TEST_P(LayoutPlacesTest, TheFrameStandsStill) {
  forEachWindow([&] {
    const Rows rows = frameRows(values());
    EXPECT_EQ(layout.frame.size(), rows.size());
    for (const Row& row : rows) expectAt(layout.frame, row, 0);
  });
}

TEST_P(LayoutPlacesTest, EveryControlOfAPageStandsByItsRow) {
  forEachWindow([&] {
    const Rows rows = kPages[page].rows(values());
    if (kPages[page].isComplete) {
      EXPECT_EQ(layout.page.size(), rows.size());
    }
    for (const Row& row : rows) expectAt(layout.page, row, layout.scroll);
  });
}

TEST_P(LayoutPlacesTest, TheCardsStandBehindThem) {
  forEachWindow([&] { EXPECT_EQ(layout.cards, expectedCards()); });
}

TEST_P(LayoutPlacesTest, APageIsAsHighAsItsCardsNeed) {
  forEachWindow([&] {
    EXPECT_EQ(layout.extent, expectedExtent());
    EXPECT_EQ(layout.paneHeight, pixels(values().paneHeight));
  });
}

TEST_P(LayoutPlacesTest, InAWindowOfAnAllowedSizeEveryControlLiesOnACard) {
  forEachWindow([&] {
    if (values().windowWidth < 880) return;  // 900 without the borders
    for (const Placement& place : layout.page) {
      const bool isCombo = findControl(place.id)->kind == ControlKind::Combo;
      const int bottom = isCombo ? place.rect.top : place.rect.bottom;
      EXPECT_TRUE(std::ranges::any_of(layout.cards, [&](const Rect& card) {
        return place.rect.left >= card.left && place.rect.right <= card.right &&
               place.rect.top >= card.top && bottom <= card.bottom;
      })) << place.id;
    }
  });
}

INSTANTIATE_TEST_SUITE_P(Dpi, LayoutPlacesTest, ::testing::Values(96, 144, 192));

}  // namespace
}  // namespace mrl

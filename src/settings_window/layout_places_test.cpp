// What the places of the controls satisfy on each page, in many window sizes, on three monitors.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "settings_window/control_table.h"
#include "settings_window/layout.h"

namespace mrl {
namespace {

constexpr int kPadding = 24;         // between a card's edge and what stands on it
constexpr int kSmallestWidth = 880;  // of an allowed window: 900 without its borders
constexpr int kClosedCombo = 38;     // the height of a combo without its list

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
        client = {toPixels(width, dpi), toPixels(height, dpi)};
        for (const int asked : kScrolls) {
          for (page = 0; page < kPageCount; ++page) {
            SCOPED_TRACE(testing::Message() << "page " << page << " of " << client.width << " by "
                                            << client.height << ", scrolled by " << asked);
            layout = layOut(client, dpi, page, asked);
            check();
          }
        }
      }
    }
  }
  void forEachAllowedWindow(const std::function<void()>& check) {
    forEachWindow([&] {
      if (toUnits(client.width, dpi) >= kSmallestWidth) check();
    });
  }
  [[nodiscard]] int pixels(int units) const { return toPixels(units, dpi); }

  /// Without the open list of a combo.
  [[nodiscard]] Rect seen(const Placement& place) const {
    Rect rect = place.rect;
    if (findControl(place.id)->kind == ControlKind::Combo) {
      rect.bottom = rect.top + pixels(kClosedCombo);
    }
    return rect;
  }
  [[nodiscard]] Rect placeInFrame(int id) const {
    return std::ranges::find(layout.frame, id, &Placement::id)->rect;
  }
  static bool overlap(const Rect& a, const Rect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
  }

  int dpi = 96;
  Size client;
  int page = 0;
  PageLayout layout;
};

TEST_P(LayoutPlacesTest, EveryControlOfAPageStandsThereOnce) {
  forEachWindow([&] {
    std::vector<int> placed;
    for (const Placement& place : layout.page) placed.push_back(place.id);
    std::vector<int> expected;
    for (const Control& control : allControls()) {
      const bool isPlacedHere = control.page == page && control.kind != ControlKind::Preview;
      if (isPlacedHere) expected.push_back(control.id);
    }
    EXPECT_EQ(placed, expected);
  });
}

TEST_P(LayoutPlacesTest, EachControlLiesWithinThePaddingOfACard) {
  forEachAllowedWindow([&] {
    for (const Placement& place : layout.page) {
      const Rect rect = seen(place);
      EXPECT_TRUE(std::ranges::any_of(layout.cards, [&](const Rect& card) {
        // A pixel for rounding.
        return rect.left >= card.left + pixels(kPadding) - 1 && rect.top > card.top &&
               rect.right <= card.right - pixels(kPadding) + 1 && rect.bottom < card.bottom;
      })) << place.id;
    }
  });
}

TEST_P(LayoutPlacesTest, NoTwoControlsOverlap) {
  forEachAllowedWindow([&] {
    for (auto one = layout.page.begin(); one != layout.page.end(); ++one) {
      for (auto other = std::next(one); other != layout.page.end(); ++other) {
        EXPECT_FALSE(overlap(seen(*one), seen(*other))) << one->id << " and " << other->id;
      }
    }
  });
}

TEST_P(LayoutPlacesTest, WhatTakesTheKeyboardIsLevelWithWhatStandsInItsRow) {
  forEachAllowedWindow([&] {
    const auto isInput = [](const Placement& place) {
      const ControlKind kind = findControl(place.id)->kind;
      return isInteractive(kind) && kind != ControlKind::AddressBox;
    };
    for (const Placement& one : layout.page) {
      for (const Placement& other : layout.page) {
        if (!isInput(one) || !isInput(other)) continue;
        const bool shareARow =
            seen(one).top < seen(other).bottom && seen(other).top < seen(one).bottom;
        if (shareARow) {
          EXPECT_NEAR(seen(one).top + seen(one).bottom, seen(other).top + seen(other).bottom,
                      pixels(4))
              << one.id << " and " << other.id;
        }
      }
    }
  });
}

TEST_P(LayoutPlacesTest, CardsFillTheWidthAndLeaveOneGap) {
  forEachWindow([&] {
    const int pane = placeInFrame(kContentPane).width();
    for (const Rect& card : layout.cards) EXPECT_GE(card.left, pixels(16) - 1);
    EXPECT_NEAR(layout.cards.back().right, pane - pixels(16), 2);
    for (size_t i = 1; i < layout.cards.size(); ++i) {
      const Rect& above = layout.cards[i - 1];
      const Rect& card = layout.cards[i];
      if (card.top == above.top) {
        EXPECT_NEAR(card.left - above.right, pixels(20), 1);
      } else {
        EXPECT_NEAR(card.top - above.bottom, pixels(24), 1);
      }
    }
  });
}

TEST_P(LayoutPlacesTest, TheStagesStandBesideEachOtherWhereThereIsRoom) {
  forEachWindow([&] {
    if (page != kStagePage) return;
    const int pane = std::max(toUnits(client.width, dpi) - 216, 600);
    EXPECT_EQ(layout.cards[0].top == layout.cards[1].top, pane - 32 >= 660);
  });
}

TEST_P(LayoutPlacesTest, APageIsAsHighAsItsCardsNeed) {
  forEachWindow([&] {
    const int end = layout.cards.back().bottom + layout.scroll;
    EXPECT_GE(layout.extent, end);
    EXPECT_LE(layout.extent, end + pixels(24) + 1);
  });
}

TEST_P(LayoutPlacesTest, ScrollingMovesThePageAloneAndAllOfIt) {
  forEachWindow([&] {
    const PageLayout top = layOut(client, dpi, page, 0);
    EXPECT_EQ(layout.frame, top.frame);
    for (size_t i = 0; i < top.page.size(); ++i) {
      EXPECT_EQ(layout.page[i].rect.top, top.page[i].rect.top - layout.scroll);
      EXPECT_EQ(layout.page[i].rect.left, top.page[i].rect.left);
      EXPECT_EQ(layout.page[i].rect.height(), top.page[i].rect.height());
    }
  });
}

TEST_P(LayoutPlacesTest, ThePaneAndTheFrameShareTheWindow) {
  forEachAllowedWindow([&] {
    for (const Placement& one : layout.frame) {
      EXPECT_GE(one.rect.left, 0) << one.id;
      EXPECT_LE(one.rect.right, client.width) << one.id;
      EXPECT_GE(one.rect.top, 0) << one.id;
    }
    if (toUnits(client.height, dpi) < 600) return;
    for (auto one = layout.frame.begin(); one != layout.frame.end(); ++one) {
      for (auto other = std::next(one); other != layout.frame.end(); ++other) {
        if (one->id == kModeCombo || other->id == kModeCombo) continue;  // with its open list
        EXPECT_FALSE(overlap(one->rect, other->rect)) << one->id << " and " << other->id;
      }
    }
    EXPECT_EQ(layout.paneHeight, placeInFrame(kContentPane).height());
  });
}

INSTANTIATE_TEST_SUITE_P(Dpi, LayoutPlacesTest, ::testing::Values(96, 144, 192));

}  // namespace
}  // namespace mrl

#include "settings_window/section_glyph.h"

#include <gtest/gtest.h>

#include <vector>

namespace mrl {
namespace {

constexpr StrokeKind kSegment = StrokeKind::Segment;
constexpr StrokeKind kBox = StrokeKind::Box;
constexpr StrokeKind kArc = StrokeKind::Arc;
constexpr StrokeKind kDot = StrokeKind::Dot;

std::vector<Stroke> glyph(int section) {
  const std::span<const Stroke> strokes = sectionGlyph(section);
  return {strokes.begin(), strokes.end()};
}

TEST(SectionGlyphTest, TheTimingIsAClockWithTwoHands) {
  EXPECT_EQ(glyph(0), (std::vector<Stroke>{{kArc, 0.12F, 0.12F, 0.76F, 0.76F, 0, 360},
                                           {kSegment, 0.5F, 0.27F, 0.5F, 0.5F},
                                           {kSegment, 0.5F, 0.5F, 0.68F, 0.62F}}));
}

TEST(SectionGlyphTest, TheLookIsAWindowWithTwoLines) {
  EXPECT_EQ(glyph(1), (std::vector<Stroke>{{kBox, 0.12F, 0.16F, 0.76F, 0.66F},
                                           {kSegment, 0.32F, 0.4F, 0.68F, 0.4F},
                                           {kSegment, 0.32F, 0.58F, 0.56F, 0.58F}}));
}

TEST(SectionGlyphTest, TheAlertsAreABellWithAClapper) {
  EXPECT_EQ(glyph(2), (std::vector<Stroke>{{kArc, 0.2F, 0.14F, 0.6F, 0.64F, 180, 180},
                                           {kSegment, 0.2F, 0.45F, 0.14F, 0.76F},
                                           {kSegment, 0.14F, 0.76F, 0.86F, 0.76F},
                                           {kSegment, 0.86F, 0.76F, 0.8F, 0.45F},
                                           {kArc, 0.4F, 0.7F, 0.2F, 0.2F, 0, 180}}));
}

TEST(SectionGlyphTest, TheRemoteIsTwoWavesAboveADot) {
  EXPECT_EQ(glyph(3), (std::vector<Stroke>{{kArc, 0.04F, 0.1F, 0.92F, 0.92F, 220, 100},
                                           {kArc, 0.23F, 0.32F, 0.54F, 0.54F, 220, 100},
                                           {kDot, 0.45F, 0.72F, 0.1F, 0.1F}}));
}

TEST(SectionGlyphTest, ThePresentationsAreAScreenOnAStandWithAPlayMark) {
  EXPECT_EQ(glyph(4), (std::vector<Stroke>{{kBox, 0.12F, 0.14F, 0.76F, 0.58F},
                                           {kSegment, 0.5F, 0.72F, 0.5F, 0.9F},
                                           {kSegment, 0.3F, 0.9F, 0.7F, 0.9F},
                                           {kSegment, 0.39F, 0.3F, 0.64F, 0.43F},
                                           {kSegment, 0.64F, 0.43F, 0.39F, 0.56F}}));
}

TEST(SectionGlyphTest, ThePenIsATwelfthOfTheSideButNeverThinnerThanOnePointFour) {
  EXPECT_FLOAT_EQ(glyphPenWidth(44), 44.0F / 12);
  EXPECT_FLOAT_EQ(glyphPenWidth(22), 22.0F / 12);
  EXPECT_FLOAT_EQ(glyphPenWidth(12), 1.4F);
}

}  // namespace
}  // namespace mrl

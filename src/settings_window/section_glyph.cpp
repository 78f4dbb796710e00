#include "settings_window/section_glyph.h"

namespace mrl {
namespace {

using enum StrokeKind;

constexpr Stroke kClock[] = {
    {Arc, 0.12F, 0.12F, 0.76F, 0.76F, 0, 360},
    {Segment, 0.5F, 0.27F, 0.5F, 0.5F},
    {Segment, 0.5F, 0.5F, 0.68F, 0.62F},
};
constexpr Stroke kWindow[] = {
    {Box, 0.12F, 0.16F, 0.76F, 0.66F},
    {Segment, 0.32F, 0.4F, 0.68F, 0.4F},
    {Segment, 0.32F, 0.58F, 0.56F, 0.58F},
};
constexpr Stroke kBell[] = {
    {Arc, 0.2F, 0.14F, 0.6F, 0.64F, 180, 180}, {Segment, 0.2F, 0.45F, 0.14F, 0.76F},
    {Segment, 0.14F, 0.76F, 0.86F, 0.76F},     {Segment, 0.86F, 0.76F, 0.8F, 0.45F},
    {Arc, 0.4F, 0.7F, 0.2F, 0.2F, 0, 180},
};
constexpr Stroke kWaves[] = {
    {Arc, 0.04F, 0.1F, 0.92F, 0.92F, 220, 100},
    {Arc, 0.23F, 0.32F, 0.54F, 0.54F, 220, 100},
    {Dot, 0.45F, 0.72F, 0.1F, 0.1F},
};
constexpr Stroke kScreen[] = {
    {Box, 0.12F, 0.14F, 0.76F, 0.58F},     {Segment, 0.5F, 0.72F, 0.5F, 0.9F},
    {Segment, 0.3F, 0.9F, 0.7F, 0.9F},     {Segment, 0.39F, 0.3F, 0.64F, 0.43F},
    {Segment, 0.64F, 0.43F, 0.39F, 0.56F},
};
constexpr std::span<const Stroke> kGlyphs[] = {kClock, kWindow, kBell, kWaves, kScreen};

}  // namespace

std::span<const Stroke> sectionGlyph(int section) { return kGlyphs[section]; }

}  // namespace mrl

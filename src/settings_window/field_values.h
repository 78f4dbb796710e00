// Converts between values and the text of the boxes. Pure functions, any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mrl {

/// Parses decimal digits, full-width ones too, after optional blanks and tabs. Empty for anything
/// else, or beyond 32 bits.
std::optional<uint32_t> numberFrom(std::u16string_view text);

/// Parses exactly #RRGGBB, in either case. Empty for anything else.
std::optional<uint32_t> colourFromText(std::u16string_view text);
std::u16string colourText(uint32_t rgb);

}  // namespace mrl

// The text forms of what the boxes hold. Pure functions, any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mrl {

/// Decimal digits and nothing else, but for blanks before them; within 32 bits.
std::optional<uint32_t> numberFrom(std::u16string_view text);

/// Exactly #RRGGBB, in either case.
std::optional<uint32_t> colourFromText(std::u16string_view text);
std::u16string colourText(uint32_t rgb);

}  // namespace mrl

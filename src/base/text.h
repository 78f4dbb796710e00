// Converts between UTF-16, the program's text, and UTF-8, which is used in files and on the
// network.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mrl {

/// Returns an empty text if any byte is invalid UTF-8: half a text would mislead.
std::u16string utf16From(std::string_view utf8);
/// An unpaired surrogate becomes U+FFFD.
std::string utf8From(std::u16string_view utf16);

/// Decimal digits, with a minus sign where needed.
std::u16string decimal(int64_t value);

}  // namespace mrl

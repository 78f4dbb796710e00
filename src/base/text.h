// UTF-16 is the program's text; UTF-8 exists only in the file and on the network. This is the one
// pair of functions between them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mrl {

/// Bytes that are not valid UTF-8 give the empty text as a whole: half a text would mislead.
std::u16string utf16From(std::string_view utf8);
/// An unpaired surrogate becomes U+FFFD.
std::string utf8From(std::u16string_view utf16);

/// Decimal digits, with a minus sign where needed.
std::u16string decimal(int64_t value);

}  // namespace mrl

// Converts between UTF-16, the program's text, and UTF-8, which is used in files and on the
// network. Trims texts and writes numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mrl {

/// Returns an empty text if any byte is invalid UTF-8: half a text would mislead.
std::u16string utf16From(std::string_view utf8);
/// An unpaired surrogate becomes U+FFFD.
std::string utf8From(std::u16string_view utf16);

/// Without the spaces and tabs at both ends.
template <class Char>
std::basic_string_view<Char> trimmed(std::basic_string_view<Char> text) {
  constexpr Char kBlanks[] = {' ', '\t', 0};
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Decimal digits, with a minus sign where needed.
std::u16string decimal(int64_t value);

}  // namespace mrl

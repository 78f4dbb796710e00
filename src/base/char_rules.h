// Character rules for deciding whether two names mean the same thing: those of the C locale and of
// ordinal comparison on Windows, implemented here so that both builds give the same answers.
#pragma once

#include <string>
#include <string_view>

namespace mrl {

/// Folds A to Z only.
char16_t toLower(char16_t unit);
std::u16string lowerCopy(std::u16string_view text);
/// Letters and digits of any script, by the character's type.
bool isAlphanumeric(char16_t unit);
bool isSpace(char16_t unit);
/// Ordinal comparison after folding each unit by its simple upper-case mapping.
bool equalsIgnoringCase(std::u16string_view a, std::u16string_view b);

}  // namespace mrl

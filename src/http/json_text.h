// Text as JSON.
#pragma once

#include <string>
#include <string_view>

namespace mrl {

/// `text` in quotes, as UTF-8. Control characters get the form with four digits; nothing else but
/// the quotation mark and the backslash is escaped. An unpaired surrogate becomes U+FFFD.
std::string jsonString(std::u16string_view text);

/// "true" or "false".
std::string jsonBoolean(bool value);

}  // namespace mrl

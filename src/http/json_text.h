// Text as JSON.
#pragma once

#include <string>
#include <string_view>

namespace mrl {

/// `text` as UTF-8 in quotes. Control characters become \u00XX; apart from them only the quotation
/// mark and the backslash are escaped. An unpaired surrogate becomes U+FFFD.
std::string jsonString(std::u16string_view text);

/// "true" or "false".
std::string jsonBoolean(bool value);

}  // namespace mrl

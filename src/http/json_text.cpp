#include "http/json_text.h"

#include <cstdio>

#include "base/text.h"

namespace mrl {

std::string jsonString(std::u16string_view text) {
  std::string out = "\"";
  for (const char byte : utf8From(text)) {
    if (byte == '"' || byte == '\\') {
      out += '\\';
      out += byte;
    } else if (static_cast<unsigned char>(byte) < 32) {
      char escaped[7];
      std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned>(byte));
      out += escaped;
    } else {
      out += byte;
    }
  }
  return out + '"';
}

std::string jsonBoolean(bool value) { return value ? "true" : "false"; }

}  // namespace mrl

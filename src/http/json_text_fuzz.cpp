// For any text the result is one valid JSON string: a quotation mark at each end, and in between
// only what a JSON string may contain.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "http/json_text.h"

namespace {

bool isHex(char digit) { return (digit >= '0' && digit <= '9') || (digit >= 'a' && digit <= 'f'); }

/// Length in bytes of the escape sequence at `at`; 0 if it is invalid.
size_t escapeAt(const std::string& json, size_t at) {
  if (at + 1 >= json.size()) return 0;
  if (json[at + 1] == '"' || json[at + 1] == '\\') return 2;
  if (json[at + 1] != 'u' || at + 6 > json.size()) return 0;
  for (size_t i = at + 2; i < at + 6; ++i) {
    if (!isHex(json[i])) return 0;
  }
  return 6;
}

bool isJsonString(const std::string& json) {
  if (json.size() < 2 || json.front() != '"' || json.back() != '"') return false;
  for (size_t at = 1; at + 1 < json.size();) {
    if (json[at] == '"' || static_cast<unsigned char>(json[at]) < 32) return false;
    const size_t step = json[at] == '\\' ? escapeAt(json, at) : 1;
    if (step == 0) return false;
    at += step;
    if (at >= json.size()) return false;  // the escape ate the closing quote
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::u16string text(size / 2, u'\0');
  if (!text.empty()) std::memcpy(text.data(), data, text.size() * 2);
  if (!isJsonString(mrl::jsonString(text))) std::abort();
  return 0;
}

// For any port list: the result is "not covered" only if the text is a plain list of ports and
// ranges without the port.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "remote/firewall.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  const int32_t port = data[0] | data[1] << 8;
  std::u16string ports((size - 2) / 2, u'\0');
  if (!ports.empty()) std::memcpy(ports.data(), data + 2, ports.size() * 2);
  if (mrl::portSpecCovers(ports, port)) return 0;

  const bool isPlain = ports.find_first_not_of(u"0123456789,- \t") == ports.npos;
  if (!isPlain || port < 1024) std::abort();
  // Prepending another port must not change the result; appending the port itself must.
  if (mrl::portSpecCovers(u"1," + ports, port)) std::abort();
  const std::string digits = std::to_string(port);
  if (!mrl::portSpecCovers(ports + u"," + std::u16string(digits.begin(), digits.end()), port)) {
    std::abort();
  }
  return 0;
}

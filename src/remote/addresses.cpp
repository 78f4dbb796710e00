#include "remote/addresses.h"

#include "core/text.h"

namespace mrl {
namespace {

constexpr uint32_t kLoopback = 0x0100007F;  // in network order, as all of them

std::u16string dotted(uint32_t address) {
  std::u16string text;
  for (int shift = 0; shift < 32; shift += 8) {
    text += (text.empty() ? u"" : u".") + decimal(address >> shift & 0xFF);
  }
  return text;
}

}  // namespace

std::u16string remoteUrlList(const std::vector<uint32_t>& addresses, const std::u16string& key,
                             int32_t port) {
  if (addresses.empty()) return remoteUrlList({kLoopback}, key, port);
  std::u16string lines;
  for (const uint32_t address : addresses) {
    if (!lines.empty()) lines += u"\r\n";
    lines += u"http://" + dotted(address) + u":" + decimal(port) + u"/";
    if (!key.empty()) lines += u"#" + key;
  }
  return lines;
}

}  // namespace mrl

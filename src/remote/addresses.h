// The addresses under which the service can be reached. Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace mrl {

/// A line "http://a.b.c.d:port/" per address, with "#key" behind it unless `key` is empty, joined
/// by
/// "\r\n". Without addresses the one line names this machine only.
std::u16string remoteUrlList(const std::vector<uint32_t>& addresses, const std::u16string& key,
                             int32_t port);

}  // namespace mrl

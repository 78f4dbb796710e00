// The addresses at which a phone can reach this computer.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "remote/network.h"

namespace mrl {

/// Fills `addresses` (IPv4, network order) with those of the connected networks, most likely to
/// work first. On failure returns false, empties `addresses` and fills `error` with a message for
/// the user. UI thread.
[[nodiscard]] bool discoverAddresses(Network& network, std::vector<uint32_t>& addresses,
                                     std::u16string& error);

/// One line "http://a.b.c.d:port/" per address, followed by "#key" unless `key` is empty, joined by
/// "\r\n". Without addresses a single line with the loopback address.
std::u16string remoteUrlList(const std::vector<uint32_t>& addresses, const std::u16string& key,
                             int32_t port);

}  // namespace mrl

// The addresses under which a phone can reach this computer.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "remote/network.h"

namespace mrl {

/// Fills `addresses` (IPv4, network order) with those of the connected networks, the likeliest one
/// first. On failure returns false, `addresses` is empty and `error` has the text for the user. UI
/// thread.
[[nodiscard]] bool discoverAddresses(Network& network, std::vector<uint32_t>& addresses,
                                     std::u16string& error);

/// A line "http://a.b.c.d:port/" per address, with "#key" behind it unless `key` is empty, joined
/// by "\r\n". Without addresses the one line names this machine only.
std::u16string remoteUrlList(const std::vector<uint32_t>& addresses, const std::u16string& key,
                             int32_t port);

}  // namespace mrl

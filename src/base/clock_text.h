// How a length of time is written. Pure, any thread.
#pragma once

#include <cstdint>
#include <string>

namespace mrl {

/// Minutes and seconds, from one hour on hours as well. A negative value counts as 0.
std::u16string formatClock(int64_t seconds);

}  // namespace mrl

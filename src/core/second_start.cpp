#include "core/second_start.h"

namespace mrl {
namespace {

constexpr uint32_t kWaitMs = 200;
constexpr int kAttempts = 25;

/// Another process may hold the mutex or fake the window, so its account must be ours with at least
/// our rights. A process that has those gains nothing by it.
bool isOurs(const OtherClock& clock, const Account& own) {
  return clock.isAnnounced && !own.user.empty() && clock.account.user == own.user &&
         (clock.account.isElevated || !own.isElevated);
}

bool askTheFirst(Instances& instances) {
  const Account own = instances.own();
  for (const OtherClock& clock : instances.others()) {
    if (isOurs(clock, own) && instances.askForSettings(clock.window)) return true;
  }
  return false;
}

}  // namespace

bool handOver(Instances& instances) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (instances.claim(kWaitMs)) return false;
    if (askTheFirst(instances)) return true;
  }
  return false;
}

}  // namespace mrl

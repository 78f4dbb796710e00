#include "settings/settings.h"

namespace mrl {

bool hasBlackConflict(const Settings& settings) {
  return settings.black && (settings.exitShow || settings.switchPpt);
}

}  // namespace mrl

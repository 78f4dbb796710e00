#include "settings_window/layout.h"

namespace mrl {

void layoutPage(App& /*app*/) {}

void scrollTo(App& /*app*/, int /*position*/) {}

}  // namespace mrl

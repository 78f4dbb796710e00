#include "settings_window/spoken_names_win.h"

#include <initguid.h>
#include <objbase.h>
// Must come after <objbase.h>.
#include <oleacc.h>

#include "base/com_ref_win.h"
#include "base/wide_win.h"
#include "settings_window/control_table.h"

namespace mrl {
namespace {

template <typename Act>
void forEachNamed(const std::map<int, HWND>& controls, Act act) {
  ComRef<IAccPropServices> services;
  if (FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                              IID_IAccPropServices, reinterpret_cast<void**>(services.put())))) {
    return;
  }
  for (const SpokenName& spoken : spokenNames()) {
    const auto found = controls.find(spoken.id);
    if (found != controls.end()) act(*services, found->second, spoken.name);
  }
}

}  // namespace

void giveSpokenNames(const std::map<int, HWND>& controls) {
  forEachNamed(controls, [](IAccPropServices& services, HWND control, const char16_t* name) {
    services.SetHwndPropStr(control, OBJID_CLIENT, CHILDID_SELF, PROPID_ACC_NAME,
                            wideFrom(name).c_str());
  });
}

void takeSpokenNamesBack(const std::map<int, HWND>& controls) {
  forEachNamed(controls, [](IAccPropServices& services, HWND control, const char16_t*) {
    services.ClearHwndProps(control, OBJID_CLIENT, CHILDID_SELF, &PROPID_ACC_NAME, 1);
  });
}

}  // namespace mrl

// The refusal that every remote change of the settings may meet.
#pragma once

#include "core/app.h"

namespace mrl {

/// True, with `error` filled, while the settings window holds input that has not been applied: a
/// remote control never overwrites it.
inline bool hasUnfinishedInput(const App& app, std::u16string& error) {
  if (!app.form.isOpen || !app.form.settingsDirty) return false;
  error = u"电脑有尚未完成的输入，请先修正或完成输入。";
  return true;
}

}  // namespace mrl

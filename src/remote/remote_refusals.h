// The check that every remote change of the settings has to pass.
#pragma once

#include "core/app.h"

namespace mrl {

/// True, and fills `error`, while the settings window contains unapplied input: a remote client
/// must never overwrite it.
inline bool hasUnfinishedInput(const App& app, std::u16string& error) {
  if (!app.form.isOpen || !app.form.settingsDirty) return false;
  error = u"电脑有尚未完成的输入，请先修正或完成输入。";
  return true;
}

}  // namespace mrl

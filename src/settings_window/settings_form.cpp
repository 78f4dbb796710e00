#include "settings_window/settings_form.h"

#include "core/app.h"

namespace mrl {

void refillForm(App& app) {
  if (app.form.isOpen) app.form.settings = app.settings;
}

void reloadFileList(App& /*app*/) {}

}  // namespace mrl

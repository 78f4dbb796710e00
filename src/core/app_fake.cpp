// Out of line, so that the members of the fakes are compiled once and not in every test file.
#include "core/app_fake.h"

#include "settings_window/commands.h"
#include "settings_window/preview.h"

namespace mrl {

AppFake::AppFake() {
  settingsView.notify = [this](int id, int code) { onSettingsCommand(app, id, code); };
  settingsView.hostSized = [this] { refreshPreview(app); };
  settingsView.previewSized = [this](Size size) { onPreviewSized(app, size); };
}

AppFake::~AppFake() = default;

}  // namespace mrl

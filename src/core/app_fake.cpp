// Out of line, so that the members of the fakes are compiled once and not in every test file.
#include "core/app_fake.h"

#include "settings_window/commands.h"
#include "settings_window/preview.h"

namespace mrl {

AppFake::AppFake() {
  settingsView.notify = [this](int id, int code) { onSettingsCommand(app, id, code); };
  previewView.hostSized = [this] { refreshPreview(app); };
  previewView.sized = [this](Size size) { onPreviewSized(app, size); };
}

AppFake::~AppFake() = default;

}  // namespace mrl

// Any bytes as a form: either it is refused with a reason and nothing has changed, or it is applied
// and the resulting settings can be loaded from the file.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/app_fake.h"
#include "remote/controls.h"
#include "settings/settings_file.h"

namespace {

constexpr char16_t kPath[] = u"C:\\data\\settings.dat";
constexpr char kRevisionHolder[] = "REVISION";

/// Corpus files can't contain the current revision, so a placeholder marks where it goes.
std::string withRevision(std::string form, const mrl::Settings& settings) {
  const size_t at = form.find(kRevisionHolder);
  if (at != form.npos) {
    form.replace(at, sizeof kRevisionHolder - 1, mrl::controlsRevision(settings));
  }
  return form;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  mrl::AppFake fake;
  mrl::App& app = fake.app;
  app.settingsPath = kPath;
  const mrl::Settings before = app.settings;
  const std::string form = withRevision({reinterpret_cast<const char*>(data), size}, before);
  std::u16string error;
  if (!mrl::applyControlsForm(app, form, error)) {
    if (error.empty() || app.settings != before || fake.outside.files.exists(kPath)) std::abort();
    return 0;
  }
  mrl::Settings loaded;
  if (!mrl::loadSettings(fake.outside.files, kPath, loaded, error)) std::abort();
  if (loaded != app.settings) std::abort();
  return 0;
}

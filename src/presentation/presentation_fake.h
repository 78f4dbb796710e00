// Fakes for everything that the presentation subsystem uses, with one common log.
#pragma once

#include <string>
#include <vector>

#include "presentation/automation_access.h"
#include "presentation/automation_fake.h"
#include "presentation/window_system_fake.h"
#include "settings/files_fake.h"

namespace mrl {

struct PresentationFake {
  std::vector<std::string> log;
  AutomationFake automation{log};
  WindowSystemFake windows{log};
  FilesFake files;
  PresentationAccess access{automation, windows, files};
  AutomationState state;

  /// A show window that covers its monitor.
  void addShowWindow(int64_t handle, const std::u16string& title = u"Slide Show") {
    windows.windows.push_back({.handle = {handle}, .title = title, .className = u"screenClass"});
  }
  /// A window in which a deck is edited.
  void addEditWindow(int64_t handle, const std::u16string& title) {
    windows.windows.push_back({.handle = {handle}, .title = title, .className = u"PPTFrameClass"});
  }
};

}  // namespace mrl

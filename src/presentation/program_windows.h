// Recognises presentation programs by their windows: which program owns a window, and which windows
// lead to its object model.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/window_handle.h"
#include "presentation/window_system.h"

namespace mrl {

/// The ProgID of the program with that image path; empty if it is not a presentation program. Only
/// the file name counts, case-insensitively.
std::u16string_view providerOfImage(const std::u16string& imagePath);

/// The other ProgID of the same program; empty if it has only one.
std::u16string_view otherProviderOf(std::u16string_view progId);

/// One look at the desktop for the visible windows of presentation programs: taken when it is first
/// asked for, and kept, because asking every window for its program takes far longer than all else
/// that a search does. Valid only for the search that made it. UI thread.
class ProgramWindows {
 public:
  struct Row {
    WindowHandle window;
    std::u16string_view provider;
  };

  explicit ProgramWindows(WindowSystem& desktop) : system(desktop) {}

  WindowSystem& desktop() const { return system; }
  /// Topmost first.
  const std::vector<Row>& rows();

 private:
  WindowSystem& system;
  std::optional<std::vector<Row>> seen;
};

/// The windows of the provider's program that may lead to its object model, topmost first, each
/// followed by its candidate child windows. Empty for a ProgID that is only the second name of a
/// program. UI thread.
std::vector<WindowHandle> objectModelWindows(ProgramWindows& programs, std::u16string_view progId);

}  // namespace mrl

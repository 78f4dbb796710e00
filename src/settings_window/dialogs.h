// The interface to what the settings window asks of the system beside itself: message boxes,
// pickers and the clipboard.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace mrl {

enum class DialogIcon { Question, Warning, Information };
enum class FileFilter { Audio, Presentation };

/// The kinds of file that a picker offers.
struct OfferedFiles {
  const char16_t* name;      // shown to the user
  const char16_t* patterns;  // separated by ";"
};
constexpr OfferedFiles offeredFiles(FileFilter filter) {
  return filter == FileFilter::Audio
             ? OfferedFiles{u"音频文件", u"*.wav;*.mp3;*.wma;*.aif;*.aiff;*.m4a"}
             : OfferedFiles{u"演示文稿", u"*.ppt;*.pptx;*.pps;*.ppsx;*.dps"};
}

using CustomColours = std::array<uint32_t, 16>;

/// UI thread only. The settings window owns the dialogs. REQUIRES: it is open.
class SettingsDialogs {
 public:
  virtual ~SettingsDialogs() = default;

  /// True for Yes. This and inform() block; messages are still dispatched.
  [[nodiscard]] virtual bool askYesNo(const std::u16string& text, const std::u16string& title,
                                      DialogIcon icon) = 0;
  virtual void inform(const std::u16string& text, const std::u16string& title, DialogIcon icon) = 0;
  /// A path, empty on cancel or failure. Both block; messages are still dispatched.
  [[nodiscard]] virtual std::u16string pickFolder() = 0;
  [[nodiscard]] virtual std::u16string pickFile(FileFilter filter) = 0;
  /// Starts at `colour` (0xRRGGBB) and replaces it. False on cancel, with both arguments unchanged.
  /// `custom` are the colours that the user can define in the dialog.
  [[nodiscard]] virtual bool pickColour(uint32_t& colour, CustomColours& custom) = 0;
  /// Copies a text to the clipboard; false on failure.
  [[nodiscard]] virtual bool copyText(const std::u16string& text) = 0;
};

}  // namespace mrl

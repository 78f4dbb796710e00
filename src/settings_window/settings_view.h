// The settings window as its logic sees it: the controls of control_table.h by their ids, and what
// the layout, the preview and the dialogs need.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/window_handle.h"

namespace mrl {

/// Set on a control; the painter and outside programs look at them.
enum class Mark {
  Hover,    // the mouse is over it
  Active,   // a button is in its "on" state
  Invalid,  // a box holds invalid input
};

/// What a control tells its window. The numbers are those of the system.
enum Notification : int {
  kClicked = 0,
  kSelectionChanged = 1,  // of a combo or a list
  kDoubleClicked = 2,     // a row of a list
  kFocusLost = 0x200,     // the three of an edit box
  kFocusTaken = 0x100,
  kTextChanged = 0x300,
};

enum class Bar { Page, PreviewHorizontal, PreviewVertical };
/// Of a scroll bar whose range begins at 0.
struct ScrollInfo {
  int last = 0;  // of the range
  int page = 0;
  int position = 0;
  int track = 0;  // where the thumb is being dragged; read only
  bool operator==(const ScrollInfo&) const = default;
};

/// What a scroll bar asks for. The numbers are those of the system.
enum class ScrollStep {
  LineBack,
  LineForward,
  PageBack,
  PageForward,
  Drop,  // of the thumb, where it was dragged to
  Track,
  Start,
  End,
};

/// A control's place in its parent, pixels.
struct Placement {
  int id = 0;
  Rect rect;
  bool operator==(const Placement&) const = default;
};

enum class DialogIcon { Question, Warning, Information };
enum class FileFilter { Audio, Presentation };

using CustomColours = std::array<uint32_t, 16>;

/// UI thread only. Commands on a window or control that does not exist do nothing and questions
/// give empty answers. setText() on an edit box notifies the window as typing does; setChecked(),
/// setRow() and the list verbs notify nobody.
class SettingsView {
 public:
  virtual ~SettingsView() = default;

  /// Makes the window with its pane and all controls, not shown yet; false when the system refuses.
  /// REQUIRES: there is none. Screen pixels.
  [[nodiscard]] virtual bool create(const Rect& rect) = 0;
  [[nodiscard]] virtual bool isOpen() const = 0;
  [[nodiscard]] virtual WindowHandle handle() const = 0;
  virtual void destroy() = 0;
  /// Shows the new window, in front.
  virtual void show() = 0;
  /// Restores a minimised or maximised window and brings it to the front.
  virtual void restore() = 0;
  /// While it is on, a window that is shown or restored and whatever is asked stand above windows
  /// that are always on top. Holds for a window that is made later too.
  virtual void standAboveAll(bool on) = 0;

  [[nodiscard]] virtual std::u16string text(int id) = 0;
  virtual void setText(int id, const std::u16string& text) = 0;
  [[nodiscard]] virtual bool isChecked(int id) = 0;
  virtual void setChecked(int id, bool checked) = 0;
  /// Of a combo, a list or the tabs; -1 for none.
  [[nodiscard]] virtual int row(int id) = 0;
  virtual void setRow(int id, int row) = 0;
  /// Replaces all rows of a list; nothing is selected then, and the first row is at the top.
  virtual void setListRows(int id, const std::vector<std::u16string>& rows) = 0;
  [[nodiscard]] virtual int topRow(int id) = 0;
  virtual void setTopRow(int id, int row) = 0;
  [[nodiscard]] virtual bool hasFocus(int id) = 0;
  virtual void focus(int id) = 0;
  virtual void enable(int id, bool enabled) = 0;
  [[nodiscard]] virtual bool mark(int id, Mark mark) = 0;
  virtual void setMark(int id, Mark mark, bool on) = 0;
  /// Asks for a paint of what lies outside the client area as well.
  virtual void redrawFrame(int id) = 0;
  /// Asks for a paint, without erasing first.
  virtual void invalidate(int id) = 0;

  /// 96 while there is no window.
  [[nodiscard]] virtual int dpi() const = 0;
  /// Fits fonts, rows and frames to a monitor of another DPI, then takes the place there.
  virtual void adoptDpi(int dpi, const Rect& rect) = 0;
  [[nodiscard]] virtual Size clientSize() const = 0;
  [[nodiscard]] virtual Rect rectOf(int id) = 0;
  /// Moves the window's own children and the pane's, each in one step.
  virtual void place(std::span<const Placement> placements) = 0;
  /// Shows or hides without taking the focus; one that stands so already is left alone.
  virtual void setVisible(int id, bool visible) = 0;
  [[nodiscard]] virtual ScrollInfo scrollInfo(Bar bar) = 0;
  virtual void setScrollInfo(Bar bar, const ScrollInfo& info) = 0;
  /// The whole window, frame and children, now.
  virtual void redrawAll() = 0;
  /// The pane, its frame and children, when the loop is idle.
  virtual void redrawPane() = 0;

  [[nodiscard]] virtual Size previewHostSize() = 0;
  /// In the host, pixels; neither activates nor reorders.
  virtual void placePreview(const Rect& rect) = 0;

  /// True for Yes. Blocks, with the loop running.
  [[nodiscard]] virtual bool askYesNo(const std::u16string& text, const std::u16string& title,
                                      DialogIcon icon) = 0;
  virtual void inform(const std::u16string& text, const std::u16string& title, DialogIcon icon) = 0;
  /// A path, empty after a cancel or a failure. Block, with the loop running.
  [[nodiscard]] virtual std::u16string pickFolder() = 0;
  [[nodiscard]] virtual std::u16string pickFile(FileFilter filter) = 0;
  /// Starts at `colour` (0xRRGGBB) and replaces it; false, and all as it was, after a cancel. The
  /// custom colours are those that the user can keep in the dialog.
  [[nodiscard]] virtual bool pickColour(uint32_t& colour, CustomColours& custom) = 0;
  /// Puts a text on the clipboard; false when that failed.
  [[nodiscard]] virtual bool copyText(const std::u16string& text) = 0;
};

}  // namespace mrl

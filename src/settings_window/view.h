// The interface between the settings window's logic and the system: the controls of control_table.h
// by their ids, and what the layout needs.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/window_handle.h"
#include "settings_window/scroll_bar.h"

namespace mrl {

/// Flags set on a control, read by the painter and by other programs.
enum class Mark {
  Hover,    // the mouse is over it
  Active,   // a button is in its "on" state
  Invalid,  // a box holds invalid input
};

/// Notifications of a control to its window, with the system's values.
enum Notification : int {
  kClicked = 0,
  kSelectionChanged = 1,  // of a combo or a list
  kDoubleClicked = 2,     // a row of a list
  kFocusLost = 0x200,     // these three of an edit box
  kFocusTaken = 0x100,
  kTextChanged = 0x300,
};

/// A control's rectangle in its parent, in pixels.
struct Placement {
  int id = 0;
  Rect rect;
  bool operator==(const Placement&) const = default;
};

/// UI thread only. If the window or the control does not exist, commands do nothing and queries
/// return empty values. setText() on a box of one line notifies the window as typing does;
/// setChecked(), setRow() and the functions for lists don't notify.
class SettingsView {
 public:
  virtual ~SettingsView() = default;

  /// Creates the window, hidden, with its pane and all controls; false on failure. Screen pixels.
  /// REQUIRES: there is no window.
  [[nodiscard]] virtual bool create(const Rect& rect) = 0;
  [[nodiscard]] virtual bool isOpen() const = 0;
  [[nodiscard]] virtual WindowHandle handle() const = 0;
  virtual void destroy() = 0;
  /// Shows the new window and brings it to the front.
  virtual void show() = 0;
  /// Restores a minimised or maximised window and brings it to the front.
  virtual void restore() = 0;
  /// While on, show() and restore() put the window above always-on-top windows, and message boxes
  /// are above them too. Also applies to a window that is created later.
  virtual void standAboveAll(bool on) = 0;

  [[nodiscard]] virtual std::u16string text(int id) = 0;
  virtual void setText(int id, const std::u16string& text) = 0;
  [[nodiscard]] virtual bool isChecked(int id) = 0;
  virtual void setChecked(int id, bool checked) = 0;
  /// The selected row of a combo, a list or the tabs, or -1.
  [[nodiscard]] virtual int row(int id) = 0;
  virtual void setRow(int id, int row) = 0;
  /// Replaces all rows of a list; afterwards no row is selected and the first is at the top.
  virtual void setListRows(int id, const std::vector<std::u16string>& rows) = 0;
  [[nodiscard]] virtual int topRow(int id) = 0;
  virtual void setTopRow(int id, int row) = 0;
  [[nodiscard]] virtual bool hasFocus(int id) = 0;
  virtual void focus(int id) = 0;
  virtual void enable(int id, bool enabled) = 0;
  [[nodiscard]] virtual bool mark(int id, Mark mark) = 0;
  virtual void setMark(int id, Mark mark, bool on) = 0;
  /// Repaints the control now, including its frame.
  virtual void redrawFrame(int id) = 0;
  /// Requests a repaint, without erasing first.
  virtual void invalidate(int id) = 0;

  /// 96 while there is no window.
  [[nodiscard]] virtual int dpi() const = 0;
  /// Fits fonts, rows and frames to another DPI, then moves the window to `rect`.
  virtual void adoptDpi(int dpi, const Rect& rect) = 0;
  [[nodiscard]] virtual Size clientSize() const = 0;
  [[nodiscard]] virtual Rect rectOf(int id) = 0;
  /// Moves children of the window and of the pane, those of each parent in one step.
  virtual void place(std::span<const Placement> placements) = 0;
  /// Shows or hides without taking the focus; does nothing if the control already is so.
  virtual void setVisible(int id, bool visible) = 0;
  /// Of the pane's scroll bar.
  [[nodiscard]] virtual ScrollInfo scrollInfo() = 0;
  virtual void setScrollInfo(const ScrollInfo& info) = 0;
  /// Repaints the whole window, frame and children, now.
  virtual void redrawAll() = 0;
  /// Requests a repaint of the pane, its frame and children.
  virtual void redrawPane() = 0;
};

}  // namespace mrl

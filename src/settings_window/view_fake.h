// A SettingsView in memory: every control of the table with its text, check, row, focus and marks.
// It notifies like the real one, also when the program itself writes into a box, and simulates the
// user's mouse and keyboard.
#pragma once

#include <cassert>
#include <functional>
#include <map>
#include <set>
#include <utility>

#include "settings_window/control_table.h"
#include "settings_window/view.h"

namespace mrl {

class SettingsViewFake : public SettingsView {
 public:
  // The user's actions.
  void type(int id, const std::u16string& text) {
    takeFocus(id);
    change(id, text);
  }
  void click(int id) {
    takeFocus(id);
    const Control& control = rowOf(id);
    if (control.kind == ControlKind::Check) setChecked(id, !isChecked(id));
    if (control.kind == ControlKind::Radio) {
      for (const Control& other : allControls()) {
        if (other.kind == ControlKind::Radio) setChecked(other.id, other.id == id);
      }
    }
    notify(id, kClicked);
  }
  void select(int id, int row) {
    takeFocus(id);
    setRow(id, row);
    notify(id, kSelectionChanged);
  }
  void doubleClick(int id, int row) {
    select(id, row);
    notify(id, kDoubleClicked);
  }
  /// Takes the focus from the control; no other gets it.
  void leave(int id) {
    if (focused == id) takeFocus(kNobody);
  }

  // The interface.
  bool create(const Rect& rect) override {
    assert(!open);
    if (createFails) return false;
    open = true;
    ++creations;
    windowRect = rect;
    for (const Control& control : allControls()) texts[control.id] = control.text;
    return true;
  }
  bool isOpen() const override { return open; }
  WindowHandle handle() const override { return open ? WindowHandle{kHandle} : WindowHandle{}; }
  void destroy() override {
    takeFocus(kNobody);  // as in the system, while the boxes still exist
    open = false;
    texts.clear();
    checked.clear();
    selected.clear();
    lists.clear();
    tops.clear();
    disabled.clear();
    hidden.clear();
    marks.clear();
    rects.clear();
    bar = {};
    destroyed();
  }
  void show() override { calls.emplace_back("show"); }
  void restore() override { calls.emplace_back("restore"); }
  void standAboveAll(bool on) override { aboveAll = on; }

  std::u16string text(int id) override { return open ? texts[id] : u""; }
  void setText(int id, const std::u16string& text) override {
    written.push_back(id);
    if (open) change(id, text);
  }
  bool isChecked(int id) override { return checked.contains(id); }
  void setChecked(int id, bool on) override { put(checked, id, on); }
  int row(int id) override { return selected.contains(id) ? selected[id] : -1; }
  void setRow(int id, int row) override {
    if (open) selected[id] = row;
  }
  void setListRows(int id, const std::vector<std::u16string>& rows) override {
    if (!open) return;
    lists[id] = rows;
    selected.erase(id);
    tops.erase(id);
  }
  int topRow(int id) override { return tops.contains(id) ? tops[id] : 0; }
  void setTopRow(int id, int row) override {
    if (open) tops[id] = row;
  }
  bool hasFocus(int id) override { return open && focused == id; }
  void focus(int id) override { takeFocus(id); }
  void enable(int id, bool enabled) override { put(disabled, id, !enabled); }
  bool mark(int id, Mark mark) override { return marks.contains({id, mark}); }
  void setMark(int id, Mark mark, bool on) override { put(marks, {id, mark}, on); }
  void redrawFrame(int id) override { redrawnFrames.push_back(id); }
  void invalidate(int id) override { invalidated.push_back(id); }

  int dpi() const override { return open ? windowDpi : kUnitsPerInch; }
  Size clientSize() const override { return open ? client : Size{}; }
  void adoptDpi(int dpi, const Rect& rect) override {
    if (!open) return;
    windowDpi = dpi;
    windowRect = rect;
    client = {rect.width(), rect.height()};
    calls.emplace_back("adoptDpi");
  }
  Rect rectOf(int id) override { return rects.contains(id) ? rects[id] : Rect{}; }
  void place(std::span<const Placement> placements) override {
    if (!open) return;
    for (const Placement& placement : placements) rects[placement.id] = placement.rect;
  }
  void setVisible(int id, bool visible) override { put(hidden, id, !visible); }
  ScrollInfo scrollInfo() override { return bar; }
  void setScrollInfo(const ScrollInfo& info) override {
    if (open) bar = info;
  }
  void redrawAll() override { calls.emplace_back("redrawAll"); }
  void redrawPane() override { calls.emplace_back("redrawPane"); }

  static constexpr int64_t kHandle = 900;
  static constexpr int kNobody = -1;

  // Settings for a test.
  std::function<void(int id, int notification)> notify = [](int, int) {};
  std::function<void()> destroyed = [] {};
  bool createFails = false;
  bool aboveAll = false;
  int windowDpi = kUnitsPerInch;
  Size client{1040, 740};

  // What was recorded.
  int creations = 0;
  std::vector<std::string> calls;
  std::vector<int> written;  // the ids that setText() was called with

  // The state of the window and its controls.
  bool open = false;
  Rect windowRect;
  int focused = kNobody;
  std::map<int, std::u16string> texts;
  std::set<int> checked;
  std::map<int, int> selected;
  std::map<int, std::vector<std::u16string>> lists;
  std::map<int, int> tops;
  std::set<int> disabled;
  std::set<int> hidden;
  std::set<std::pair<int, Mark>> marks;
  std::map<int, Rect> rects;
  ScrollInfo bar;  // of the pane
  std::vector<int> redrawnFrames;
  std::vector<int> invalidated;

 private:
  static const Control& rowOf(int id) {
    assert(findControl(id));
    return *findControl(id);
  }
  template <class Set>
  void put(Set& set, const typename Set::value_type& value, bool in) {
    if (!open) return;
    if (in) {
      set.insert(value);
    } else {
      set.erase(value);
    }
  }
  /// The system notifies of every write into a box of one line, even one that changes nothing.
  void change(int id, const std::u16string& text) {
    texts[id] = text;
    const ControlKind kind = rowOf(id).kind;
    if (kind == ControlKind::NumberBox || kind == ControlKind::TextBox) notify(id, kTextChanged);
  }
  /// By the time a control notifies of the loss, the focus has already moved.
  void takeFocus(int id) {
    if (!open || focused == id) return;
    const int before = focused;
    focused = id;
    if (before != kNobody && isEditBox(rowOf(before).kind)) notify(before, kFocusLost);
    if (id != kNobody && isEditBox(rowOf(id).kind)) notify(id, kFocusTaken);
  }
};

}  // namespace mrl

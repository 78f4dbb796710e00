// The settings window's life: it opens, turns its pages and closes. UI thread.
#pragma once

#include <string>

#include "core/app.h"

namespace mrl {

inline constexpr Size kSettingsWindowUnits{1040, 740};
inline constexpr Size kSmallestSettingsUnits{900, 620};
inline constexpr const char16_t* kSettingsTitle = u"Marlune 设置";
inline constexpr const char16_t* kDialogTitle = u"Marlune";

/// Opens the window with a fresh form; one that is open comes to the front as it is.
void openSettingsWindow(App& app);

/// Closes it, after a question if there is input that took no effect. False when it stays open.
bool closeSettingsWindow(App& app);

/// Applies what is pending; asks `question` about what can't be. True when nothing is left or the
/// user gives it up.
bool mayDiscardInput(App& app, const std::u16string& question);

/// The window goes without a question, because the program ends or the user agreed.
void destroySettingsWindow(App& app);

/// 0 to 4; any other number counts as the nearest of them.
void selectPage(App& app, int index);

struct HeldKeys {
  bool control = false;
  bool alt = false;
};
/// A key pressed in the window or on one of its controls. True when it meant something, and then it
/// goes no further.
bool onSettingsKey(App& app, int virtualKey, HeldKeys held);

/// Writes only what differs, so that nothing flickers and no box reports a change.
void setTextIfChanged(App& app, int id, const std::u16string& text);

/// Turns the controls' notifications off while it lives, so that filling them books no edits.
class SuppressControls {
 public:
  explicit SuppressControls(App& owner) : app(owner), before(owner.form.controlsSuppressed) {
    app.form.controlsSuppressed = true;
  }
  ~SuppressControls() { app.form.controlsSuppressed = before; }
  SuppressControls(const SuppressControls&) = delete;
  SuppressControls& operator=(const SuppressControls&) = delete;

 private:
  App& app;
  bool before;
};

}  // namespace mrl

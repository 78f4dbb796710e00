// Opens and closes the settings window, switches its pages and handles its keys. UI thread.
#pragma once

#include <string>

#include "core/app.h"

namespace mrl {

inline constexpr Size kSettingsWindowUnits{1040, 740};
inline constexpr Size kSmallestSettingsUnits{900, 620};
inline constexpr const char16_t* kSettingsTitle = u"Marlune 设置";
inline constexpr const char16_t* kDialogTitle = u"Marlune";

/// Opens the window with a fresh form; if it is already open, brings it to the front unchanged.
void openSettingsWindow(App& app);

/// Applies pending input and closes the window; asks first if some could not be applied. False if
/// it stays open.
bool closeSettingsWindow(App& app);

/// Applies pending input; if some is left, asks `question`. True if nothing is left or the user
/// agrees to discard it.
bool mayDiscardInput(App& app, const std::u16string& question);

/// Closes the window and discards pending input without asking.
void destroySettingsWindow(App& app);

/// `index` is clamped to 0 to 4.
void selectPage(App& app, int index);

struct HeldKeys {
  bool control = false;
  bool alt = false;
};
/// Handles a key pressed in the window or one of its controls. True for a shortcut, which must not
/// be dispatched further.
bool onSettingsKey(App& app, int virtualKey, HeldKeys held);

/// Writes only a different text, so that nothing flickers and no box reports a change.
void setTextIfChanged(App& app, int id, const std::u16string& text);

/// While it lives, notifications of controls are ignored, so that filling them queues no edits.
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

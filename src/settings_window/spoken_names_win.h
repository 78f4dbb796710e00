// Gives the controls of the settings window the names that a screen reader says (see spokenNames).
// UI thread. On a system without that service nothing happens: the labels are still there.
#pragma once

#include <windows.h>

#include <map>

namespace mrl {

/// `controls` are the window's, by their ids.
void giveSpokenNames(const std::map<int, HWND>& controls);
/// REQUIRES: the controls still exist; the system keeps the names of those that do not.
void takeSpokenNamesBack(const std::map<int, HWND>& controls);

}  // namespace mrl

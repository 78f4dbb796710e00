// Sets the accessible names of the settings window's controls for screen readers: see
// spokenNames(). UI thread. Without the system's service nothing happens: the labels remain.
#pragma once

#include <windows.h>

#include <map>

namespace mrl {

/// `controls` are the window's, by id.
void giveSpokenNames(const std::map<int, HWND>& controls);
/// REQUIRES: the controls still exist, otherwise the system would keep their names.
void takeSpokenNamesBack(const std::map<int, HWND>& controls);

}  // namespace mrl

// The commands by which a test steers the stand-in.
#pragma once

#include <windows.h>

#include <string>

namespace mrl::standin {

struct StandIn;

/// A message to the thread: sleep for WPARAM milliseconds.
inline constexpr UINT kFreeze = WM_APP;

/// Runs one command of the table in commands.cpp: words parted by blanks, joined by double quotes.
/// The reply is "ok", what was asked for, or a text that begins with "error: ". A deck is named by
/// its path or its file name; where it is left out, the active deck is meant, or the show that was
/// started last.
std::wstring runCommand(StandIn& standIn, const std::wstring& text);

}  // namespace mrl::standin

// The commands with which a test controls the stand-in.
#pragma once

#include <windows.h>

#include <string>

namespace mrl::standin {

struct StandIn;

/// A thread message: sleep for WPARAM milliseconds.
inline constexpr UINT kFreeze = WM_APP;

/// Runs one command of the table in commands.cpp; arguments are separated by spaces, double quotes
/// group them. Returns "ok", the requested value, or a text that begins with "error: ". A deck is
/// named by its path or file name; if omitted, the active deck or the show started last is meant.
std::wstring runCommand(StandIn& standIn, const std::wstring& text);

}  // namespace mrl::standin

// The rules by which two names mean the same document.
#pragma once

#include <string>
#include <string_view>

#include "settings/files.h"
#include "settings/settings.h"

namespace mrl {

/// Of the files that presentation programs show, in lower case. One that begins with another stands
/// before it.
inline constexpr std::u16string_view kPresentationExtensions[] = {u".pptx", u".ppsx", u".ppt",
                                                                  u".pps", u".dps"};

/// The one form in which paths are compared and stored: final and absolute for what exists, tidy
/// for what does not. Never fails. Letter case is not folded.
std::u16string normalizePath(Files& files, const std::u16string& path);

/// Equality that ignores case; the caller normalises first where that matters.
bool samePath(std::u16string_view a, std::u16string_view b);

/// Whether a window title speaks of the document at `path`. Folders play no part.
bool titleNamesDocument(std::u16string_view title, std::u16string_view path);

/// Whether `path` is in the list of files that are excluded from timing.
bool isSkipped(Files& files, const Settings& settings, const std::u16string& path);
/// The same for a path that is normalised already, without asking the file system again.
bool isSkipped(const Settings& settings, const std::u16string& normal);

}  // namespace mrl

// Rules for deciding whether two names mean the same document.
#pragma once

#include <string>
#include <string_view>

#include "settings/files.h"
#include "settings/settings.h"

namespace mrl {

/// The extensions of presentation files, in lower case. One that begins with another
/// comes before it.
inline constexpr std::u16string_view kPresentationExtensions[] = {u".pptx", u".ppsx", u".ppt",
                                                                  u".pps", u".dps"};

/// The form in which paths are compared and stored: the part that exists is final and absolute, the
/// rest normalised as text. On a file system error the whole path is normalised as text; never
/// fails. Case is not folded.
std::u16string normalizePath(Files& files, const std::u16string& path);

/// Case-insensitive equality; the caller normalises first where needed.
bool samePath(std::u16string_view a, std::u16string_view b);

/// Whether a window title names the document at `path`. Folders are ignored.
bool titleNamesDocument(std::u16string_view title, std::u16string_view path);

/// Whether `path` is on the list of presentations that are excluded from timing.
bool isSkipped(Files& files, const Settings& settings, const std::u16string& path);
/// The same for a path that is already normalised, without file system access.
bool isSkipped(const Settings& settings, const std::u16string& normal);

}  // namespace mrl

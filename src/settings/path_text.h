// Paths as text, without a look at the disk. `separator` is the platform's: with '\\' both
// separators count, and drives and servers are roots; with '/' only '/' counts.
#pragma once

#include <string>
#include <string_view>

namespace mrl {

/// Length of the root: a drive or server, if any, and the separators behind it. Components follow.
size_t rootLength(std::u16string_view path, char16_t separator);

/// One kind of separator, collapsed; "." dropped, ".." folded into the component before it. What
/// names something but comes out empty is ".".
std::u16string lexicallyNormal(std::u16string_view path, char16_t separator);

/// The path of `name` in `folder`.
std::u16string joinedPath(std::u16string_view folder, std::u16string_view name, char16_t separator);

/// The path without its last component, by either separator. A root stays.
std::u16string_view parentFolder(std::u16string_view path);

/// The last component without its last extension, by either separator. A leading dot starts no
/// extension, a stream's name behind ':' is left out.
std::u16string_view stemOf(std::u16string_view path);

/// The everyday form of what the system calls "\\?\C:\x" or "\\?\UNC\server\x". A path without one
/// stays.
std::u16string withoutLongPathPrefix(const std::u16string& path);

}  // namespace mrl

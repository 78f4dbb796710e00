// Path operations on text alone, without disk access. `separator` is the platform's: with '\\' both
// separators count, and drives and servers are roots; with '/' only '/' counts.
#pragma once

#include <string>
#include <string_view>

namespace mrl {

/// The length of the root: a drive or server, if any, and the separators after it. Components
/// follow.
size_t rootLength(std::u16string_view path, char16_t separator);

/// Uses one kind of separator, collapsed; drops "." and folds ".." into the component before it. A
/// non-empty path that comes out empty becomes ".".
std::u16string lexicallyNormal(std::u16string_view path, char16_t separator);

/// The path of `name` in `folder`.
std::u16string joinedPath(std::u16string_view folder, std::u16string_view name, char16_t separator);

/// The path without its last component, by either separator. A root is kept.
std::u16string_view parentFolder(std::u16string_view path);

/// The last component without its last extension, by either separator. A leading dot starts no
/// extension; the name of a stream after ':' is dropped.
std::u16string_view stemOf(std::u16string_view path);

/// Turns "\\?\C:\x" into "C:\x" and "\\?\UNC\server\x" into "\\server\x". Returns any other path
/// unchanged.
std::u16string withoutLongPathPrefix(const std::u16string& path);

}  // namespace mrl

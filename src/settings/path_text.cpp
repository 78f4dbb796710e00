#include "settings/path_text.h"

#include <algorithm>
#include <vector>

#include "base/char_rules.h"

namespace mrl {
namespace {

bool isSeparator(char16_t unit, char16_t separator) { return unit == separator || unit == u'/'; }

size_t skipSeparators(std::u16string_view path, size_t at, char16_t separator) {
  while (at < path.size() && isSeparator(path[at], separator)) ++at;
  return at;
}

size_t componentEnd(std::u16string_view path, size_t at, char16_t separator) {
  while (at < path.size() && !isSeparator(path[at], separator)) ++at;
  return at;
}

/// The length of "C:" or "\\server", without the separator after it.
size_t rootNameLength(std::u16string_view path, char16_t separator) {
  if (separator != u'\\' || path.size() < 2) return 0;
  const char16_t letter = toLower(path[0]);
  if (letter >= u'a' && letter <= u'z' && path[1] == u':') return 2;
  if (skipSeparators(path, 0, separator) != 2 || path.size() == 2) return 0;
  return componentEnd(path, 2, separator);
}

/// The components of `path` from `at` on, with "." and ".." resolved. `endsAsFolder`: a separator
/// follows the last one.
std::vector<std::u16string_view> foldComponents(std::u16string_view path, size_t at, bool rooted,
                                                char16_t separator, bool& endsAsFolder) {
  std::vector<std::u16string_view> parts;
  endsAsFolder = false;
  while (at < path.size()) {
    const size_t end = componentEnd(path, at, separator);
    const std::u16string_view part = path.substr(at, end - at);
    endsAsFolder = end < path.size() || part == u"." || part == u"..";
    if (part == u"..") {
      if (!parts.empty() && parts.back() != u"..") {
        parts.pop_back();
      } else if (!rooted) {  // there is nothing above a root
        parts.push_back(part);
      }
    } else if (part != u".") {
      parts.push_back(part);
    }
    at = skipSeparators(path, end, separator);
  }
  endsAsFolder = endsAsFolder && !parts.empty() && parts.back() != u"..";
  return parts;
}

}  // namespace

size_t rootLength(std::u16string_view path, char16_t separator) {
  return skipSeparators(path, rootNameLength(path, separator), separator);
}

std::u16string lexicallyNormal(std::u16string_view path, char16_t separator) {
  const size_t nameLength = rootNameLength(path, separator);
  const size_t root = rootLength(path, separator);
  const bool rooted = root > nameLength;

  std::u16string out(path.substr(0, nameLength));
  std::replace(out.begin(), out.end(), u'/', separator);
  if (rooted) out += separator;

  bool endsAsFolder = false;
  bool first = true;
  for (const auto part : foldComponents(path, root, rooted, separator, endsAsFolder)) {
    if (!first) out += separator;
    out += part;
    first = false;
  }
  if (endsAsFolder) out += separator;
  return out.empty() && !path.empty() ? u"." : out;
}

std::u16string joinedPath(std::u16string_view folder, std::u16string_view name,
                          char16_t separator) {
  std::u16string path(folder);
  // A drive without a root means its current folder; a separator would turn it into the root.
  const bool isRoot = rootLength(folder, separator) == folder.size();
  if (!isRoot && !isSeparator(folder.back(), separator)) path += separator;
  return path.append(name);
}

std::u16string_view parentFolder(std::u16string_view path) {
  const size_t root = rootLength(path, u'\\');
  size_t end = path.size();
  while (end > root && !isSeparator(path[end - 1], u'\\')) --end;
  while (end > root && isSeparator(path[end - 1], u'\\')) --end;
  return path.substr(0, end);
}

std::u16string_view stemOf(std::u16string_view path) {
  size_t start = path.size();
  const size_t root = rootLength(path, u'\\');
  while (start > root && !isSeparator(path[start - 1], u'\\')) --start;
  std::u16string_view name = path.substr(start);
  name = name.substr(0, name.find(u':'));
  if (name == u"." || name == u"..") return name;
  const size_t dot = name.rfind(u'.');
  return dot == 0 ? name : name.substr(0, dot);
}

std::u16string withoutLongPathPrefix(const std::u16string& path) {
  constexpr std::u16string_view kServer = u"\\\\?\\UNC\\";
  constexpr std::u16string_view kLocal = u"\\\\?\\";
  if (path.starts_with(kServer)) return u"\\\\" + path.substr(kServer.size());
  const bool hasDrive =
      path.starts_with(kLocal) && path.find(u":\\", kLocal.size()) == kLocal.size() + 1;
  return hasDrive ? path.substr(kLocal.size()) : path;
}

}  // namespace mrl

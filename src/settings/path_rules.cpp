#include "settings/path_rules.h"

#include <algorithm>

#include "base/char_rules.h"
#include "settings/path_text.h"

namespace mrl {
namespace {

/// Resolves the part of a normalised path that exists. False on a file system error.
bool resolveExistingPart(Files& files, const std::u16string& tidy, std::u16string& result) {
  const size_t root = rootLength(tidy, files.separator());
  std::u16string walked = tidy.substr(0, root);
  bool exists = true;
  for (size_t at = root; root < tidy.size();) {
    const size_t end = std::min(tidy.find(files.separator(), at), tidy.size());
    if (at > root && walked.back() != files.separator()) walked += files.separator();
    walked.append(tidy, at, end - at);
    if (exists) {
      std::u16string resolved;
      const CanonicalResult outcome = files.canonical(walked, resolved);
      if (outcome == CanonicalResult::Failed) return false;
      exists = outcome == CanonicalResult::Found;
      if (exists) walked = resolved;
    }
    if (end == tidy.size()) break;
    at = end + 1;
  }
  result = walked;
  return true;
}

/// Returns `end`, moved past a presentation extension if there is one.
size_t skipExtension(std::u16string_view title, size_t end) {
  for (const std::u16string_view extension : kPresentationExtensions) {
    if (title.substr(end).starts_with(extension)) return end + extension.size();
  }
  return end;
}

bool isCleanLeft(std::u16string_view title, size_t pos) {
  return pos == 0 || !(isAlphanumeric(title[pos - 1]) || title[pos - 1] == u'_');
}

bool isCleanRight(std::u16string_view title, size_t end) {
  constexpr std::u16string_view kClean = u"[]()（）【】-—|";
  return end == title.size() || isSpace(title[end]) || kClean.find(title[end]) != kClean.npos;
}

/// The part before the first NUL, where a C string would end.
std::u16string_view beforeNull(std::u16string_view text) {
  return text.substr(0, text.find(u'\0'));
}

}  // namespace

std::u16string normalizePath(Files& files, const std::u16string& path) {
  std::u16string result;
  const CanonicalResult whole = files.canonical(path, result);
  if (whole == CanonicalResult::Found) return result;
  const std::u16string tidy = lexicallyNormal(path, files.separator());
  const bool missing = whole == CanonicalResult::Missing;
  return missing && resolveExistingPart(files, tidy, result) ? result : tidy;
}

bool samePath(std::u16string_view a, std::u16string_view b) {
  return equalsIgnoringCase(beforeNull(a), beforeNull(b));
}

bool titleNamesDocument(std::u16string_view title, std::u16string_view path) {
  const std::u16string lowerTitle = lowerCopy(title);
  const std::u16string stem = lowerCopy(stemOf(path));
  if (stem.empty()) return false;
  for (size_t pos = lowerTitle.find(stem); pos != std::u16string::npos;
       pos = lowerTitle.find(stem, pos + 1)) {
    const size_t end = skipExtension(lowerTitle, pos + stem.size());
    if (isCleanLeft(lowerTitle, pos) && isCleanRight(lowerTitle, end)) return true;
  }
  return false;
}

bool isSkipped(Files& files, const Settings& settings, const std::u16string& path) {
  return isSkipped(settings, normalizePath(files, path));
}

bool isSkipped(const Settings& settings, const std::u16string& normal) {
  return std::any_of(settings.skipList.begin(), settings.skipList.end(),
                     [&](const std::u16string& entry) { return samePath(normal, entry); });
}

}  // namespace mrl

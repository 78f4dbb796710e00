// The journal of calls and keys.
#include "standin/journal.h"

#include <windows.h>

#include <filesystem>

namespace mrl::standin {
namespace {

std::string utf8From(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(size, '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

}  // namespace

void Journal::alsoTo(const std::wstring& path) {
  if (!path.empty()) file.open(std::filesystem::path(path), std::ios::app | std::ios::binary);
}

void Journal::add(const std::wstring& line) {
  lines.push_back(line);
  // Flushed per line: a test may end the process at any moment.
  if (file.is_open()) file << utf8From(line) << "\n" << std::flush;
}

std::wstring Journal::text() const {
  std::wstring all;
  for (const std::wstring& line : lines) all += line + L"\n";
  return all;
}

}  // namespace mrl::standin

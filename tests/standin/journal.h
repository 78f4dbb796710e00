// The record of every call and key that reached the stand-in, which tests read back.
#pragma once

#include <fstream>
#include <string>
#include <vector>

namespace mrl::standin {

class Journal {
 public:
  /// From here on every line also goes to the end of this file, as UTF-8. An empty path means none.
  void alsoTo(const std::wstring& path);
  void add(const std::wstring& line);
  void clear() { lines.clear(); }
  /// All lines since the last clear, each ended by a line feed.
  std::wstring text() const;

 private:
  std::vector<std::wstring> lines;
  std::ofstream file;
};

}  // namespace mrl::standin

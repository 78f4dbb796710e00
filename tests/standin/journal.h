// Log of every call and key that reached the stand-in; tests read it back.
#pragma once

#include <fstream>
#include <string>
#include <vector>

namespace mrl::standin {

class Journal {
 public:
  /// From now on also appends every line to this file, as UTF-8. Does nothing if the path is empty.
  void alsoTo(const std::wstring& path);
  void add(const std::wstring& line);
  void clear() { lines.clear(); }
  /// All lines since the last clear(), each terminated by a line feed.
  std::wstring text() const;

 private:
  std::vector<std::wstring> lines;
  std::ofstream file;
};

}  // namespace mrl::standin

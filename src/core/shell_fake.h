#pragma once

#include <vector>

#include "core/shell.h"

namespace mrl {

class ShellFake : public Shell {
 public:
  bool open(const std::u16string& target, const std::u16string& folder) override {
    opened.push_back(target);
    folders.push_back(folder);
    return !fails;
  }

  std::vector<std::u16string> opened;
  std::vector<std::u16string> folders;  // the folder of each
  bool fails = false;
};

}  // namespace mrl

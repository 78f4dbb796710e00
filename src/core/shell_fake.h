#pragma once

#include <vector>

#include "core/shell.h"

namespace mrl {

class ShellFake : public Shell {
 public:
  bool open(const std::u16string& target) override {
    opened.push_back(target);
    return !fails;
  }

  std::vector<std::u16string> opened;
  bool fails = false;
};

}  // namespace mrl

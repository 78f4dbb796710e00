// See core/shell.h.
#pragma once

#include "core/shell.h"

namespace mrl {

class ShellWin : public Shell {
 public:
  bool open(const std::u16string& target, const std::u16string& folder) override;
};

}  // namespace mrl

#pragma once

#include "core/black_screen.h"

namespace mrl {

class BlackScreenFake : public BlackScreen {
 public:
  void cover() override { covering = true; }
  void uncover() override { covering = false; }
  bool isCovering() override { return covering; }
  void raise() override { ++raises; }

  bool covering = false;
  int raises = 0;
};

}  // namespace mrl

#pragma once

#include "core/black_screen.h"

namespace mrl {

class BlackScreenFake : public BlackScreen {
 public:
  static constexpr WindowHandle kWindow{3};

  void cover() override {
    covering = true;
    ++covers;
  }
  void uncover() override { covering = false; }
  bool isCovering() override { return covering; }
  bool contains(WindowHandle window) const override { return covering && window == kWindow; }
  void raise() override { ++raises; }

  bool covering = false;
  int covers = 0;
  int raises = 0;
};

}  // namespace mrl

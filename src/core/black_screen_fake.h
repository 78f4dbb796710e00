#pragma once

#include <string>
#include <vector>

#include "core/black_screen.h"

namespace mrl {

class BlackScreenFake : public BlackScreen {
 public:
  static constexpr WindowHandle kWindow{3};

  void cover() override {
    covering = true;
    ++covers;
    if (log != nullptr) log->emplace_back("cover");
  }
  void uncover() override { covering = false; }
  bool isCovering() override { return covering; }
  bool contains(WindowHandle window) const override { return covering && window == kWindow; }
  void raise() override {
    ++raises;
    if (log != nullptr) log->emplace_back("raise black");
  }

  bool covering = false;
  int covers = 0;
  int raises = 0;
  std::vector<std::string>* log = nullptr;  // of another fake, to show the order among the two
};

}  // namespace mrl

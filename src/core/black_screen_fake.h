#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/black_screen.h"

namespace mrl {

class BlackScreenFake : public BlackScreen {
 public:
  static constexpr WindowHandle kWindow{3};

  void cover(const std::vector<Monitor>& monitors) override {
    ++covers;
    if (log != nullptr) log->emplace_back("cover");
    if (coverFails) return;
    covering = true;
    for (const Monitor& monitor : monitors) covered[monitor.name] = monitor.rect;
  }
  void follow(const Monitor& monitor) override {
    const auto found = covered.find(monitor.name);
    if (found != covered.end()) found->second = monitor.rect;
  }
  void uncover() override {
    covering = false;
    covered.clear();
  }
  bool isCovering() override { return covering; }
  bool contains(WindowHandle window) const override { return covering && window == kWindow; }
  void raise() override {
    ++raises;
    if (log != nullptr) log->emplace_back("raise black");
  }

  bool coverFails = false;  // no window can be created

  bool covering = false;
  std::map<std::u16string, Rect> covered;  // by the monitor's name
  int covers = 0;
  int raises = 0;
  std::vector<std::string>* log = nullptr;  // shared with another fake; records their order
};

}  // namespace mrl

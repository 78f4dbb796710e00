// A ResizeToolbar for tests.
#pragma once

#include <string>
#include <vector>

#include "overlay/resize_toolbar.h"

namespace mrl {

class ResizeToolbarFake : public ResizeToolbar {
 public:
  void show(Point topLeft, int dpi) override {
    calls.emplace_back("show");
    if (showFails) return;
    exists = true;
    shownDpi = dpi;
    at = topLeft;
  }
  void place(Point topLeft, int dpi) override {
    calls.emplace_back("place");
    if (!exists) return;
    at = topLeft;
    shownDpi = dpi;
  }
  void remove() override {
    calls.emplace_back("remove");
    exists = false;
  }

  bool showFails = false;

  bool exists = false;
  Point at;
  int shownDpi = 0;
  std::vector<std::string> calls;  // by name, in order
};

}  // namespace mrl

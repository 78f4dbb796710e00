#include "overlay/clock_bitmap_win.h"

#include <gtest/gtest.h>

// The import table's entry for the function.
extern "C" HDC(WINAPI* __imp_CreateCompatibleDC)(HDC);  // NOLINT(bugprone-reserved-identifier)

namespace mrl {
namespace {

/// While it lives, CreateCompatibleDC fails.
class NoContexts {
 public:
  NoContexts() : original(exchange(refuse)) {}
  NoContexts(const NoContexts&) = delete;
  NoContexts& operator=(const NoContexts&) = delete;
  ~NoContexts() { exchange(original); }

 private:
  using Function = HDC(WINAPI*)(HDC);

  static HDC WINAPI refuse(HDC /*like*/) { return nullptr; }
  static Function exchange(Function next) {
    DWORD protection = 0;
    VirtualProtect(&__imp_CreateCompatibleDC, sizeof next, PAGE_READWRITE, &protection);
    const Function before = __imp_CreateCompatibleDC;
    __imp_CreateCompatibleDC = next;
    VirtualProtect(&__imp_CreateCompatibleDC, sizeof next, protection, &protection);
    return before;
  }

  Function original;
};

TEST(ClockBitmapTest, AContextThatCannotBeMadeIsTriedAgainForTheNextPaint) {
  ClockBitmap bitmap;
  {
    const NoContexts refusal;
    EXPECT_FALSE(bitmap.ensure({183, 82}));
  }
  EXPECT_TRUE(bitmap.ensure({183, 82}));
  EXPECT_NE(bitmap.dc(), nullptr);
  EXPECT_EQ(bitmap.size(), (Size{183, 82}));
}

}  // namespace
}  // namespace mrl

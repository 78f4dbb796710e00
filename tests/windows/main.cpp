// The tests see the screen as the program does: in pixels, whatever its resolution.
#include <gtest/gtest.h>
#include <windows.h>

int main(int count, char** arguments) {
  SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}

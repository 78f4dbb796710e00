#include "presentation/raise_window.h"

#include <gtest/gtest.h>

#include "presentation/window_system_fake.h"

namespace mrl {
namespace {

TEST(RaiseWindowTest, RaisingTakesTheWindowThroughTheTopmostBandToTheForeground) {
  WindowSystemFake::Log log;
  WindowSystemFake windows{log};
  windows.windows = {{.handle = {7}}};
  raiseWindow(windows, {7});
  EXPECT_EQ(log, (WindowSystemFake::Log{"show 7", "topmost 7", "not topmost 7", "top 7",
                                        "foreground 7"}));
}

TEST(RaiseWindowTest, NoWindowIsNotRaised) {
  WindowSystemFake::Log log;
  WindowSystemFake windows{log};
  windows.windows = {{.handle = {7}}};
  raiseWindow(windows, {});
  EXPECT_TRUE(log.empty());
}

TEST(RaiseWindowTest, AWindowThatIsGoneIsNotRaised) {
  WindowSystemFake::Log log;
  WindowSystemFake windows{log};
  windows.windows = {{.handle = {7}, .queriesLeft = 0}};
  raiseWindow(windows, {7});
  EXPECT_TRUE(log.empty());
}

TEST(RaiseWindowTest, ARefusedForegroundIsNoFailure) {
  WindowSystemFake::Log log;
  WindowSystemFake windows{log};
  windows.windows = {{.handle = {7}}};
  windows.foregroundRefused = true;
  raiseWindow(windows, {7});
  EXPECT_EQ(log.back(), "foreground 7");
  EXPECT_FALSE(windows.foreground());
}

}  // namespace
}  // namespace mrl

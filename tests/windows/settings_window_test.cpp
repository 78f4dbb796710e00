// The settings window of the real program: what stands in it and where, what its pages cost.
#include <gtest/gtest.h>

#include "settings_window/control_ids.h"
#include "windows/settings_screen.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SettingsWindowTest : public SettingsScreen {};

TEST_F(SettingsWindowTest, AClickOnASectionShowsItsPageAlone) {
  ASSERT_NO_FATAL_FAILURE(open());
  EXPECT_EQ(page(), 0);
  EXPECT_TRUE(showsOnly(0));
  for (const int index : {1, 2, 3, 4, 0}) EXPECT_TRUE(openPage(index)) << index;
}

}  // namespace
}  // namespace mrl

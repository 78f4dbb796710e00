// The settings window of the system without the program: what it is made with that no other process
// can ask for, nor any look at the screen tell.
#include <gtest/gtest.h>

#include "core/window_classes_win.h"
#include "overlay/test_window_class_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/settings_view_win.h"

namespace mrl {
namespace {

class SettingsCreateTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(view.create({0, 0, 1040, 740})); }
  void TearDown() override {
    view.onDestroying();
    view.destroy();
    view.onDestroyed();
  }
  int iconSide(WPARAM which) const {
    const auto icon = reinterpret_cast<HICON>(SendMessageW(view.topWindow(), WM_GETICON, which, 0));
    ICONINFO info{};
    if (!GetIconInfo(icon, &info)) return 0;
    BITMAP mask{};
    GetObjectW(info.hbmMask, sizeof mask, &mask);
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return mask.bmWidth;
  }

  TestWindowClass frame{kSettingsClass};
  TestWindowClass pane{kContentClass};
  TestWindowClass host{kPreviewHostClass};
  TestWindowClass preview{kPreviewClass};
  TestWindowClass code{kQrClass};
  SettingsForm form;
  SettingsViewWin view{GetModuleHandleW(nullptr), &frame, form};
};

TEST_F(SettingsCreateTest, ItHasTheProgramsIconForTheTitleBarAndForTheTaskbar) {
  EXPECT_EQ(iconSide(ICON_SMALL), toPixels(16, view.dpi()));
  EXPECT_EQ(iconSide(ICON_BIG), toPixels(32, view.dpi()));
}

TEST_F(SettingsCreateTest, ABoxHasNoMarginsBesideThoseOfItsFrame) {
  for (const Control& row : allControls()) {
    if (!isEditBox(row.kind)) continue;
    EXPECT_EQ(SendMessageW(view.control(row.id), EM_GETMARGINS, 0, 0), 0) << row.id;
    const auto style = GetWindowLongPtrW(view.control(row.id), GWL_STYLE);
    const auto extended = GetWindowLongPtrW(view.control(row.id), GWL_EXSTYLE);
    EXPECT_EQ(style & WS_BORDER, 0) << row.id;
    EXPECT_EQ(extended & WS_EX_CLIENTEDGE, 0) << row.id;
  }
}

}  // namespace
}  // namespace mrl

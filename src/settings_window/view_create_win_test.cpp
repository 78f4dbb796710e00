// The real window with all its controls, fitted to several DPIs in turn.
#include <gtest/gtest.h>
#include <windows.h>
// Must come after <windows.h>.
#include <commctrl.h>

#include <vector>

#include "base/geometry_win.h"
#include "base/window_classes_win.h"
#include "overlay/test_window_class_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/layout.h"
#include "settings_window/name_service_win.h"
#include "settings_window/view_win.h"

namespace mrl {
namespace {

class SettingsCreateTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const TestWindowClass* each : {&frame, &pane, &host, &preview, &code}) {
      ASSERT_TRUE(each->registered);
    }
    ASSERT_TRUE(view.create({50, 50, 1090, 790}));
  }
  void TearDown() override {
    view.onDestroying();
    view.destroy();
    view.onDestroyed();
  }
  Rect outer(HWND window) const {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rectFrom(rect);
  }
  void placeEverything(int dpi) {
    for (int page = 0; page < kPageCount; ++page) {
      const PageLayout layout = layOut(view.clientSize(), dpi, page, 0);
      view.place(layout.frame);
      view.place(layout.page);
    }
  }
  void expectFont(const Control& row, int dpi) const {
    const LRESULT font = SendMessageW(view.control(row.id), WM_GETFONT, 0, 0);
    LOGFONTW told{};
    ASSERT_NE(GetObjectW(reinterpret_cast<HGDIOBJ>(font), sizeof told, &told), 0) << row.id;
    const Typeface& face = kTypefaces[static_cast<size_t>(faceOf(row.id))];
    EXPECT_EQ(told.lfHeight, -toPixels(face.units, dpi)) << row.id;
    EXPECT_EQ(told.lfWeight, face.weight) << row.id;
  }
  void expectBox(HWND box, int dpi) const {
    const Rect whole = outer(box);
    const Rect inner = withinBoxFrame({0, 0, whole.width(), whole.height()}, dpi);
    EXPECT_EQ(clientSizeOf(box).height, inner.height()) << GetDlgCtrlID(box);
    EXPECT_EQ(SendMessageW(box, EM_GETMARGINS, 0, 0), 0) << GetDlgCtrlID(box);
  }
  void expectRows(const Control& row, int dpi) const {
    const HWND control = view.control(row.id);
    if (row.kind == ControlKind::List) {
      EXPECT_EQ(SendMessageW(control, LB_GETITEMHEIGHT, 0, 0), toPixels(54, dpi));
    }
    if (row.kind != ControlKind::Combo) return;
    EXPECT_EQ(SendMessageW(control, CB_GETITEMHEIGHT, 0, 0), toPixels(32, dpi));
    // The height of the closed combo; some systems add a border of their own.
    EXPECT_NEAR(static_cast<double>(SendMessageW(control, CB_GETITEMHEIGHT, WPARAM(-1), 0)),
                toPixels(32, dpi), 2);
  }
  void expectFitted(int dpi) const {
    for (const Control& row : allControls()) {
      const bool hasText = row.kind != ControlKind::PreviewHost &&
                           row.kind != ControlKind::Preview && row.kind != ControlKind::QrCode;
      if (hasText) expectFont(row, dpi);
      if (isEditBox(row.kind)) expectBox(view.control(row.id), dpi);
      expectRows(row, dpi);
    }
  }

  TestWindowClass frame{kSettingsClass}, pane{kContentClass}, host{kPreviewHostClass},
      preview{kPreviewClass}, code{kQrClass};
  SettingsForm form;
  SettingsViewWin view{GetModuleHandleW(nullptr), &frame, form};
};

TEST_F(SettingsCreateTest, ABoxHasNoFrameOfTheSystem) {
  for (const Control& row : allControls()) {
    if (!isEditBox(row.kind)) continue;
    const auto style = GetWindowLongPtrW(view.control(row.id), GWL_STYLE);
    const auto extended = GetWindowLongPtrW(view.control(row.id), GWL_EXSTYLE);
    EXPECT_EQ(style & WS_BORDER, 0) << row.id;
    EXPECT_EQ(extended & WS_EX_CLIENTEDGE, 0) << row.id;
  }
}

TEST_F(SettingsCreateTest, NewControlsFitTheMonitor) {
  placeEverything(view.dpi());
  expectFitted(view.dpi());
}

TEST_F(SettingsCreateTest, ControlsFitAnotherMonitorBeforeAndAfterTheyAreMoved) {
  placeEverything(view.dpi());
  for (const int dpi : {144, 192, 96, 192, 144, 96}) {
    const Rect suggested{20, 30, 20 + toPixels(600, dpi), 30 + toPixels(350, dpi)};
    view.adoptDpi(dpi, suggested);
    EXPECT_EQ(view.dpi(), dpi);
    EXPECT_EQ(outer(view.topWindow()), suggested);
    expectFitted(dpi);
    placeEverything(dpi);
    expectFitted(dpi);
  }
}

/// Records the row height of a combo at each WM_SIZE of the window.
LRESULT CALLBACK noteRows(HWND window, UINT message, WPARAM wide, LPARAM narrow, UINT_PTR,
                          DWORD_PTR notes) {
  if (message == WM_SIZE) {
    const HWND combo = GetDlgItem(window, kModeCombo);
    reinterpret_cast<std::vector<LRESULT>*>(notes)->push_back(
        SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0));
  }
  return DefSubclassProc(window, message, wide, narrow);
}

TEST_F(SettingsCreateTest, TheControlsFitBeforeTheWindowTakesItsNewSize) {
  std::vector<LRESULT> notes;
  SetWindowSubclass(view.topWindow(), noteRows, 1, reinterpret_cast<DWORD_PTR>(&notes));
  view.adoptDpi(192, {20, 30, 820, 530});
  EXPECT_EQ(notes, std::vector<LRESULT>{64}) << "else it is painted once with what was there";
}

TEST_F(SettingsCreateTest, ThePreviewIsMadeInTheClocksFirstSize) {
  EXPECT_EQ(clientSizeOf(view.control(kPreview)), (Size{183, 82}));
}

TEST_F(SettingsCreateTest, TheWindowIsGivenBothItsIconsForEachMonitor) {
  const auto hasBoth = [&] {
    return frame.received(WM_SETICON, ICON_BIG) && frame.received(WM_SETICON, ICON_SMALL);
  };
  EXPECT_TRUE(hasBoth());
  frame.messages.clear();
  view.adoptDpi(144, {20, 30, 620, 430});
  EXPECT_TRUE(hasBoth());
}

class SettingsSpokenTest : public SettingsCreateTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(service.registered);
    SettingsCreateTest::SetUp();
  }

  NameService service;
};

TEST_F(SettingsSpokenTest, ControlsHaveTheirNamesForAsLongAsTheWindowLives) {
  ASSERT_FALSE(service.names.empty());
  for (const auto& [control, name] : service.names) EXPECT_TRUE(IsWindow(control));
  view.onDestroying();
  EXPECT_TRUE(service.names.empty());
}

}  // namespace
}  // namespace mrl

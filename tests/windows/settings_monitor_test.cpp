// The real settings window moving to a monitor with another DPI and back.
#include <gtest/gtest.h>

#include <algorithm>

#include "settings_window/control_ids.h"
#include "settings_window/control_look.h"
#include "settings_window/layout.h"
#include "windows/settings_screen.h"

namespace mrl {
namespace {

class SettingsMonitorTest : public SettingsScreen {
 protected:
  /// Sends WM_DPICHANGED like the system, with a rectangle of the window's usual size.
  void moveToMonitorOf(int dpi) {
    const Size size{toPixels(900, dpi), toPixels(620, dpi)};
    const RECT suggested{10, 10, 10 + size.width, 10 + size.height};
    // The rectangle must be in the other process's memory during the call.
    DWORD id = 0;
    GetWindowThreadProcessId(window(), &id);
    const HANDLE process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, id);
    ASSERT_NE(process, nullptr);
    void* there = VirtualAllocEx(process, nullptr, sizeof suggested, MEM_COMMIT, PAGE_READWRITE);
    ASSERT_TRUE(WriteProcessMemory(process, there, &suggested, sizeof suggested, nullptr));
    ask(window(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(there));
    VirtualFreeEx(process, there, 0, MEM_RELEASE);
    CloseHandle(process);
    RECT now{};
    GetWindowRect(window(), &now);
    EXPECT_EQ(now.left, 10);
    EXPECT_EQ(now.top, 10);
    EXPECT_EQ(now.right - now.left, size.width);
  }
  void turnTo(int index) {
    ask(window(), WM_COMMAND, kFirstSection + index);
    ASSERT_EQ(page(), index);
  }
  void expectBoxFits(int id, int dpi) {
    const Rect outer = rect(id);
    const Rect inner = withinBoxFrame({0, 0, outer.width(), outer.height()}, dpi);
    RECT client{};
    GetClientRect(control(id), &client);
    // In a multi-line box the system reserves space for the scroll bar.
    if (id != kAddressBox) {
      EXPECT_EQ(client.right, inner.width()) << id << " at " << dpi;
    }
    EXPECT_EQ(client.bottom, inner.height()) << id << " at " << dpi;
    EXPECT_EQ(ask(control(id), EM_GETMARGINS), 0) << id << " at " << dpi;
  }
  void expectRowsFit(const Control& row, int dpi) {
    if (row.kind == ControlKind::List) {
      EXPECT_EQ(ask(control(row.id), LB_GETITEMHEIGHT), toPixels(kFileRowUnits, dpi));
    }
    if (row.kind != ControlKind::Combo) return;
    EXPECT_EQ(ask(control(row.id), CB_GETITEMHEIGHT), toPixels(kComboRowUnits, dpi));
    // The height of the closed combo; the system may add an edge.
    EXPECT_NEAR(static_cast<double>(ask(control(row.id), CB_GETITEMHEIGHT, WPARAM(-1))),
                toPixels(kComboRowUnits, dpi), 2);
  }
  /// Checks the current page and the frame.
  void expectAllFits(int dpi) {
    const PageLayout layout = layOut(clientSize(), dpi, page(), 0);
    for (const auto* placements : {&layout.frame, &layout.page}) {
      for (const auto& [id, place] : *placements) {
        const Control* row = findControl(id);
        if (row == nullptr) continue;
        expectRowsFit(*row, dpi);
        const Rect now = rect(id);
        EXPECT_EQ(now.left, place.left) << id << " at " << dpi;
        EXPECT_EQ(now.top, place.top) << id << " at " << dpi;
        EXPECT_EQ(now.width(), place.width()) << id << " at " << dpi;
        if (isEditBox(row->kind)) expectBoxFits(id, dpi);
      }
    }
  }
};

TEST_F(SettingsMonitorTest, WhateverPageIsShownFitsTheMonitorAtOnceAndTheOthersWhenTheyCome) {
  ASSERT_NO_FATAL_FAILURE(open());
  for (int shown = 0; shown < kPageCount; ++shown) {
    for (const int dpi : {192, 144, 96}) {
      ASSERT_NO_FATAL_FAILURE(turnTo(shown));
      ASSERT_NO_FATAL_FAILURE(moveToMonitorOf(dpi));
      expectAllFits(dpi);
      ASSERT_NO_FATAL_FAILURE(turnTo((shown + 1) % kPageCount));
      expectAllFits(dpi);
    }
  }
}

TEST_F(SettingsMonitorTest, ANewMonitorBringsThePageToItsTop) {
  ASSERT_NO_FATAL_FAILURE(open());
  ask(pane(), WM_VSCROLL, SB_BOTTOM);
  ASSERT_GT(scrollPosition(), 0);
  ASSERT_NO_FATAL_FAILURE(moveToMonitorOf(144));
  EXPECT_EQ(rect(kTimingTitle).top, toPixels(20, 144));
}

TEST_F(SettingsMonitorTest, ItsSmallestSizeIsThatOfTheMonitor) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_NO_FATAL_FAILURE(moveToMonitorOf(144));
  resize({100, 100});
  RECT now{};
  GetWindowRect(window(), &now);
  EXPECT_EQ(now.right - now.left, toPixels(900, 144));
  EXPECT_EQ(now.bottom - now.top, toPixels(620, 144));
}

}  // namespace
}  // namespace mrl

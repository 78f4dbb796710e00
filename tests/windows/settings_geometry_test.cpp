// The layout of the real settings window at the DPI of the test's desktop, and pictures of its
// pages.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "base/command_ids.h"
#include "settings_window/control_ids.h"
#include "settings_window/layout.h"
#include "windows/host_program.h"
#include "windows/picture.h"
#include "windows/settings_screen.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

using standin::waitUntil;

/// The text that a QR reader finds in a saved picture; empty if none.
std::string scanned(const std::wstring& name) {
  const std::wstring folder = pictureFolder();
  const std::wstring answer = folder + name + L".txt";
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  const HANDLE output =
      CreateFileW(answer.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                  CREATE_ALWAYS, 0, nullptr);
  EXPECT_TRUE(
      startOnHost(LR"(Z:\usr\bin\zbarimg --quiet --nodbus --raw )" + name, folder.c_str(), output));
  CloseHandle(output);
  std::string text;
  (void)waitUntil([&] {
    std::getline(std::ifstream(std::filesystem::path(answer)), text);
    return !text.empty();
  });
  return text;
}

class SettingsGeometryTest : public SettingsScreen {
 protected:
  /// The actual height of a control that was given `given`.
  int heightOf(const Control* row, int given, int now) const {
    // The given height of a combo includes its list, which is closed; a list box shows whole rows
    // only.
    if (row && row->kind == ControlKind::Combo) return std::clamp(now, scaled(32), scaled(40));
    if (row && row->kind == ControlKind::List) return given - given % scaled(54);
    return given;
  }
  void expectPlaces(const std::vector<Placement>& placements) {
    for (const auto& [id, given] : placements) {
      const Rect now = id == kContentPane ? placeInParent(pane()) : rect(id);
      Rect expected = given;
      expected.bottom = given.top + heightOf(findControl(id), given.height(), now.height());
      EXPECT_EQ(now, expected) << id << " on page " << page();
    }
  }
  /// Expects all controls of the current page at their layout positions, scrolled by `scroll`.
  void expectLaidOut(int scroll) {
    ASSERT_EQ(dpi(), static_cast<int>(GetDpiForSystem()));
    const PageLayout layout = layOut(clientSize(), dpi(), page(), scroll);
    ASSERT_EQ(layout.scroll, scroll);
    expectPlaces(layout.frame);
    expectPlaces(layout.page);
  }
  int endOfPage() const {
    const PageLayout layout = layOut(clientSize(), dpi(), page(), 0);
    return std::max(layout.extent - layout.paneHeight, 0);
  }
  void expectEveryPageLaidOut() {
    for (int index = 0; index < kPageCount; ++index) {
      ASSERT_TRUE(openPage(index));
      expectLaidOut(0);
      ask(pane(), WM_VSCROLL, SB_BOTTOM);
      expectLaidOut(endOfPage());
    }
  }
  Picture settledPicture(int id) const {
    RECT place{};
    GetWindowRect(control(id), &place);
    return settledPictureOf(place);
  }
  std::wstring shotName(const std::wstring& what) const {
    return what + L"-" + std::to_wstring(dpi()) + L".png";
  }
};

TEST_F(SettingsGeometryTest, EveryPageStandsAsLaidOutAtItsTopAndAtItsEnd) {
  ASSERT_NO_FATAL_FAILURE(open());
  expectEveryPageLaidOut();
  ASSERT_TRUE(openPage(1));
  EXPECT_GT(endOfPage(), 0) << "a page that does not scroll would prove nothing";
}

TEST_F(SettingsGeometryTest, EveryPageStandsAsLaidOutInAWindowOfTheSmallestSize) {
  ASSERT_NO_FATAL_FAILURE(open());
  resize({scaled(900), scaled(620)});
  expectEveryPageLaidOut();
}

TEST_F(SettingsGeometryTest, EveryPageStandsAsLaidOutInAWideWindow) {
  ASSERT_NO_FATAL_FAILURE(open());
  resize({scaled(1180), scaled(700)});
  expectEveryPageLaidOut();
}

TEST_F(SettingsGeometryTest, ThePageFollowsTheWindowToTheWholeScreenAndBackFromTheTaskbar) {
  ASSERT_NO_FATAL_FAILURE(open());
  const int width = clientSize().width;
  ShowWindow(window(), SW_MAXIMIZE);
  ASSERT_TRUE(waitUntil([&] { return clientSize().width > width; }));
  expectEveryPageLaidOut();
  ShowWindow(window(), SW_MINIMIZE);
  ASSERT_TRUE(waitUntil([&] { return IsIconic(window()); }));
  program.command(kCommandOpenSettings);
  ASSERT_TRUE(waitUntil([&] { return clientSize().width > width; }));
  expectEveryPageLaidOut();
}

TEST_F(SettingsGeometryTest, AWiderWindowPutsTheStagesSideBySideAndEndsTheScrolling) {
  ASSERT_NO_FATAL_FAILURE(open());
  resize({scaled(900), scaled(620)});
  ASSERT_TRUE(openPage(2));
  EXPECT_EQ(rect(kFirstStageTitle).left, rect(kSecondStageTitle).left);
  ask(pane(), WM_VSCROLL, SB_BOTTOM);
  ASSERT_GT(scrollPosition(), scaled(200));
  resize({scaled(1040), scaled(620)});
  EXPECT_EQ(rect(kFirstStageTitle).top, rect(kSecondStageTitle).top);
  EXPECT_EQ(scrollPosition(), endOfPage());
  expectLaidOut(endOfPage());
}

TEST_F(SettingsGeometryTest, AnotherPageBeginsAtItsTop) {
  ASSERT_NO_FATAL_FAILURE(open());
  ask(pane(), WM_VSCROLL, SB_BOTTOM);
  ASSERT_GT(scrollPosition(), 0);
  ASSERT_TRUE(openPage(1));
  expectLaidOut(0);
}

TEST_F(SettingsGeometryTest, EveryPageLooksLikeNoOtherOnTheScreen) {
  ASSERT_NO_FATAL_FAILURE(open());
  std::vector<Picture> pictures;
  for (int index = 0; index < kPageCount; ++index) {
    ASSERT_TRUE(openPage(index));
    const Picture picture = settledShot();
    EXPECT_TRUE(savePng(picture, shotName(L"page-" + std::to_wstring(index))));
    const std::set<uint32_t> colours(picture.pixels.begin(), picture.pixels.end());
    EXPECT_GT(colours.size(), 50u) << "texts and shapes have soft edges";
    EXPECT_EQ(std::ranges::count(pictures, picture), 0) << index;
    pictures.push_back(picture);
  }
}

TEST_F(SettingsGeometryTest, TheCodeOnTheScreenIsTheFirstAddressOfThePage) {
  ASSERT_NO_FATAL_FAILURE(open());
  ASSERT_TRUE(openPage(3));
  const std::wstring addresses = text(kAddressBox);
  const std::wstring first = addresses.substr(0, addresses.find(L"\r\n"));
  ASSERT_TRUE(first.starts_with(L"http://"));
  ASSERT_TRUE(savePng(settledPicture(kQrCode), shotName(L"qr")));
  EXPECT_EQ(scanned(shotName(L"qr")), std::string(first.begin(), first.end()));
}

TEST_F(SettingsGeometryTest, WithoutTheServiceThePlaceOfTheCodeIsWhite) {
  Settings settings;
  settings.remoteAutoStart = false;
  ASSERT_NO_FATAL_FAILURE(open(settings));
  ASSERT_TRUE(openPage(3));
  const std::vector<uint32_t> pixels = settledPicture(kQrCode).pixels;
  EXPECT_EQ(std::ranges::count(pixels, 0xFFFFFFu), static_cast<std::ptrdiff_t>(pixels.size()));
}

}  // namespace
}  // namespace mrl

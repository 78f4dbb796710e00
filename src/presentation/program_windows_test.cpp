#include "presentation/program_windows.h"

#include <gtest/gtest.h>

#include "presentation/automation_access.h"
#include "presentation/window_system_fake.h"

namespace mrl {
namespace {

constexpr char16_t kOffice[] = u"C:\\Office\\POWERPNT.EXE";
constexpr char16_t kWpsImage[] = u"C:\\Office\\wpp.exe";

class ObjectModelWindowsTest : public testing::Test {
 protected:
  // Handles count from 1 in the order in which windows are added, topmost first.
  FakeWindow& add(const std::u16string& image, const std::u16string& className = u"frame") {
    const int64_t handle = static_cast<int64_t>(windows.windows.size()) + 1;
    windows.windows.push_back({.handle = {handle}, .image = image, .className = className});
    return windows.windows.back();
  }
  void addInside(int64_t parent, const std::u16string& className) {
    FakeWindow& inner = add(kOffice, className);
    inner.parent = {parent};
  }
  std::vector<int64_t> of(std::u16string_view progId) {
    std::vector<int64_t> handles;
    ProgramWindows programs(windows);
    for (const WindowHandle window : objectModelWindows(programs, progId)) {
      handles.push_back(window.value);
    }
    return handles;
  }

  WindowSystemFake::Log log;
  WindowSystemFake windows{log};
};

using Handles = std::vector<int64_t>;

TEST(ProviderOfImageTest, EachPresentationProgramIsReachedByAName) {
  EXPECT_EQ(providerOfImage(u"C:\\x\\powerpnt.exe"), u"PowerPoint.Application");
  for (const char16_t* image : {u"wpp.exe", u"wps.exe", u"wpsppt.exe", u"wpsoffice.exe"}) {
    EXPECT_EQ(providerOfImage(image), u"KWPP.Application");
  }
}

TEST(ProviderOfImageTest, OnlyTheLastPartOfThePathCountsInAnyCase) {
  EXPECT_EQ(providerOfImage(kOffice), u"PowerPoint.Application");
  EXPECT_EQ(providerOfImage(u"C:/x/PowerPnt.exe"), u"PowerPoint.Application");
  EXPECT_EQ(providerOfImage(u"C:\\powerpnt.exe\\browser.exe"), u"");
  EXPECT_EQ(providerOfImage(u"my powerpnt.exe"), u"");
  EXPECT_EQ(providerOfImage(u""), u"");
}

TEST(OtherProviderTest, WpsHasTwoNamesAndPowerPointOne) {
  EXPECT_EQ(otherProviderOf(u"KWPP.Application"), u"WPP.Application");
  EXPECT_EQ(otherProviderOf(u"WPP.Application"), u"KWPP.Application");
  EXPECT_EQ(otherProviderOf(u"PowerPoint.Application"), u"");
}

TEST_F(ObjectModelWindowsTest, AProvidersOwnWindowsAreAskedFromTheTopDown) {
  add(kOffice);
  add(kWpsImage);
  add(kOffice);
  EXPECT_EQ(of(u"PowerPoint.Application"), (Handles{1, 3}));
  EXPECT_EQ(of(u"KWPP.Application"), Handles{2});
}

TEST_F(ObjectModelWindowsTest, ForTheOtherNameOfAProgramTheDesktopIsNotEvenLookedAt) {
  add(kWpsImage);
  EXPECT_EQ(of(u"WPP.Application"), Handles{});
  EXPECT_EQ(of(u"Marlune.Test.Application"), Handles{});
  EXPECT_EQ(of(u""), Handles{});
  EXPECT_EQ(windows.scans, 0);
}

TEST_F(ObjectModelWindowsTest, AWindowOfTheSameClassInAnotherProgramIsNotAsked) {
  add(u"C:\\x\\browser.exe", u"PPTFrameClass");
  addInside(1, u"mdiClass");
  EXPECT_EQ(of(u"PowerPoint.Application"), Handles{});
}

TEST_F(ObjectModelWindowsTest, AWindowWhoseProgramCanNotBeToldIsNotAsked) {
  add(u"");
  EXPECT_EQ(of(u"PowerPoint.Application"), Handles{});
}

TEST_F(ObjectModelWindowsTest, AHiddenWindowIsNotAskedButAMinimisedOneIs) {
  add(kOffice).visible = false;
  add(kOffice).iconic = true;
  EXPECT_EQ(of(u"PowerPoint.Application"), Handles{2});
}

TEST_F(ObjectModelWindowsTest, InsideAFrameOnlyTheWindowsOfADeckOrAShowAreAsked) {
  add(kOffice);
  add(kOffice);
  addInside(1, u"NetUIHWND");
  addInside(1, u"mdiClass");
  addInside(2, u"paneClassDC");
  EXPECT_EQ(of(u"PowerPoint.Application"), (Handles{1, 4, 2, 5}));
}

TEST_F(ObjectModelWindowsTest, WindowsThatVanishMeanwhileArePassedOver) {
  add(kOffice).queriesLeft = 1;
  add(kOffice);
  addInside(2, u"mdiClass");
  windows.windows.back().queriesLeft = 0;
  EXPECT_EQ(of(u"PowerPoint.Application"), Handles{2});
}

TEST_F(ObjectModelWindowsTest, OneSearchLooksAtTheDesktopOnceWhateverItAsks) {
  add(kOffice);
  add(kWpsImage);
  ProgramWindows programs(windows);
  EXPECT_EQ(objectModelWindows(programs, u"PowerPoint.Application").size(), 1U);
  EXPECT_EQ(objectModelWindows(programs, u"KWPP.Application").size(), 1U);
  EXPECT_EQ(programs.rows().size(), 2U);
  EXPECT_EQ(windows.scans, 1);
}

}  // namespace
}  // namespace mrl

// The clock's pixels on the screen, where its published text isn't enough: after hiding, and at a
// new size.
#include <gtest/gtest.h>

#include "base/command_ids.h"
#include "base/wide_win.h"
#include "windows/picture.h"
#include "windows/program.h"
#include "windows/standin_fixture.h"

namespace mrl {
namespace {

using standin::TemporaryDeck;
using standin::waitUntil;

class ClockPictureTest : public testing::Test {
 protected:
  /// A clock that fills its rectangle, so that only its own pixels are seen, placed beside the
  /// editing window: the X server doesn't know that the clock is topmost.
  static Settings solid() {
    Settings settings;
    settings.windowX = 1080;
    settings.windowY = 150;
    settings.shape = 0;
    settings.opacity = 100;
    return settings;
  }
  void startTimer(const Settings& settings) {
    program.prepare(settings);
    ASSERT_TRUE(program.start());
  }
  void startPresentations() { ASSERT_TRUE(presentations.start(L"powerpnt.exe")); }
  void tell(const std::wstring& command) { ASSERT_EQ(presentations.command(command), L"ok"); }
  void open(const TemporaryDeck& deck) { tell(L"open \"" + deck.path + L"\""); }

  bool becomesVisible(bool expected) {
    return waitUntil([&] { return program.isVisible() == expected; });
  }
  bool shows(const Picture& expected) {
    return waitUntil([&] { return pictureOf(program.rect()) == expected; });
  }
  /// True once the background in all four corners of the clock has that colour.
  bool isFilledWith(uint32_t colour, DWORD limitMs = 10'000) {
    return waitUntil(
        [&] {
          const Picture picture = pictureOf(program.rect());
          const int right = picture.size.width - 1;
          const int bottom = picture.size.height - 1;
          return picture.at(0, 0) == colour && picture.at(right, 0) == colour &&
                 picture.at(0, bottom) == colour && picture.at(right, bottom) == colour;
        },
        limitMs);
  }

  TemporaryDeck talk{L"talk.pptx"};
  TemporaryDeck next{L"next.pptx"};
  standin::Client presentations;
  Program program;
};

TEST_F(ClockPictureTest, ForTheNextSpeakerTheClockComesBackWithItsFullTime) {
  startPresentations();
  open(talk);
  Settings settings = solid();
  settings.hideNoDocument = true;
  startTimer(settings);
  ASSERT_TRUE(isFilledWith(settings.background));
  const Picture full = settledPictureOf(program.rect());
  tell(L"show");
  ASSERT_TRUE(program.waitForText(L"14:57"));
  EXPECT_NE(settledPictureOf(program.rect()), full) << "the digits can't be told apart";
  tell(L"exit");
  tell(L"close");
  ASSERT_TRUE(becomesVisible(false));
  ASSERT_TRUE(program.waitForText(L"15:00"));
  open(next);
  ASSERT_TRUE(becomesVisible(true));
  EXPECT_TRUE(shows(full));
}

TEST_F(ClockPictureTest, AfterTheFollowingDeckTheClockComesBackWithoutTheRedOfItsLastBlink) {
  startPresentations();
  open(talk);
  Settings settings = solid();
  settings.duration = 10;
  settings.blink = true;
  settings.blinkOn = 3000;
  settings.switchPpt = true;
  settings.switchDeck = u16From(next.path);
  startTimer(settings);
  tell(L"show");
  ASSERT_TRUE(isFilledWith(settings.alert, 20'000)) << "the time is up";
  ASSERT_TRUE(becomesVisible(false));
  // Long enough for several polls, so that one of them has seen the deck.
  EXPECT_FALSE(waitUntil([&] { return program.isVisible(); }, 4000));
  ASSERT_TRUE(waitUntil([&] { return presentations.command(L"exit next.pptx") == L"ok"; }));
  ASSERT_TRUE(becomesVisible(true));
  EXPECT_TRUE(isFilledWith(settings.background));
}

TEST_F(ClockPictureTest, ATimeThatRanOnWhileTheClockWasHiddenIsShownWithItAgain) {
  const Settings settings = solid();
  startTimer(settings);
  ASSERT_TRUE(isFilledWith(settings.background));
  const Picture full = settledPictureOf(program.rect());
  program.command(kCommandHideClock);
  program.command(kCommandToggleTimer);
  ASSERT_TRUE(program.waitForText(L"14:58"));
  program.command(kCommandToggleTimer);
  EXPECT_FALSE(program.isVisible());
  program.command(kCommandShowClock);
  EXPECT_TRUE(waitUntil([&] { return pictureOf(program.rect()) != full; }));
  EXPECT_TRUE(isFilledWith(settings.background));
}

TEST_F(ClockPictureTest, AnotherResolutionWhileTheClockIsHiddenIsSeenWhenItComesBack) {
  const Settings settings = solid();
  startTimer(settings);
  program.command(kCommandHideClock);
  sendDpiChanged(program.clock(), 192, {100, 120, 100 + 2 * scaled(183), 120 + 2 * scaled(82)});
  program.command(kCommandShowClock);
  EXPECT_EQ(program.rect().right, 100 + 2 * scaled(183));
  EXPECT_TRUE(isFilledWith(settings.background));
}

TEST_F(ClockPictureTest, ANewSizeIsPaintedAtOnce) {
  const Settings settings = solid();
  startTimer(settings);
  ASSERT_TRUE(isFilledWith(settings.background));
  SetWindowPos(program.clock(), nullptr, 200, 150, scaled(400), scaled(200),
               SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_TRUE(isFilledWith(settings.background)) << "and not only when the text changes";
}

}  // namespace
}  // namespace mrl

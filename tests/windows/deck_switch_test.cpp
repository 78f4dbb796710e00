// The next deck is played when the time is up: from the exit of the old show until the clock
// reappears.
#include <gtest/gtest.h>

#include "base/command_ids.h"
#include "base/wide_win.h"
#include "windows/program.h"
#include "windows/standin_fixture.h"

namespace mrl {
namespace {

using standin::TemporaryDeck;
using standin::waitUntil;

class DeckSwitchSystemTest : public testing::Test {
 protected:
  static constexpr int kSeconds = 10;  // the start of all programs must be over by then

  void runOut(const std::wstring& next, const std::wstring& fault = L"clear-faults") {
    ASSERT_TRUE(presentations.start(L"powerpnt.exe"));
    tell(fault);
    tell(L"open \"" + talk.path + L"\"");
    tell(L"show");
    Settings settings;
    settings.duration = kSeconds;
    settings.switchPpt = true;
    settings.switchDeck = u16From(next);
    program.prepare(settings);
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(program.isCounting());
    tell(L"clear-log");
    ASSERT_TRUE(waitUntil([&] { return logHas(L"Exit"); })) << "the time is up";
    exitedAtMs = GetTickCount64();
  }
  void tell(const std::wstring& command) { ASSERT_EQ(presentations.command(command), L"ok"); }
  bool logHas(const std::wstring& words) {
    return presentations.command(L"log").find(words) != std::wstring::npos;
  }
  /// Since the next deck was opened, if the log still knows that.
  int handlesAsked() {
    const std::wstring log = presentations.command(L"log");
    const size_t opened = log.find(L"Presentations.Open(");
    int count = 0;
    for (size_t at = opened == std::wstring::npos ? 0 : opened;
         (at = log.find(L"SlideShowWindow.HWND", at)) != std::wstring::npos; ++at) {
      ++count;
    }
    return count;
  }
  /// True once the deck's show is in front again of a window that has just been raised.
  bool isRaisedAbove(HWND other) {
    SetForegroundWindow(other);
    BringWindowToTop(other);
    return waitUntil([&] { return GetForegroundWindow() == showWindow(); });
  }
  static HWND showWindow() { return FindWindowW(L"screenClass", nullptr); }

  TemporaryDeck talk{L"talk.pptx"};
  TemporaryDeck next{L"next.pptx"};
  standin::Client presentations;
  Program program;
  ULONGLONG exitedAtMs = 0;
};

TEST_F(DeckSwitchSystemTest, TheNextDeckIsPlayedInFrontAndTheClockComesBackAfterIt) {
  runOut(next.path);
  EXPECT_TRUE(waitUntil([&] { return !presentations.shows(talk.path); })) << "the old show ends";
  ASSERT_TRUE(waitUntil([&] { return logHas(L"Presentations.Open("); }));
  EXPECT_GE(GetTickCount64() - exitedAtMs, 300u) << "the old show is given time to go";
  ASSERT_TRUE(waitUntil([&] { return presentations.shows(next.path); }));
  EXPECT_TRUE(waitUntil([&] { return !program.isVisible(); })) << "the clock makes room";

  const HWND other = CreateWindowExW(0, L"STATIC", L"in the way", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                     50, 50, 200, 100, nullptr, nullptr, nullptr, nullptr);
  EXPECT_TRUE(isRaisedAbove(other));
  DestroyWindow(other);

  // Long enough for several polls, all of which see the deck for which the clock is hidden.
  tell(L"clear-log");
  EXPECT_FALSE(waitUntil([&] { return program.isVisible(); }, 4000));
  tell(L"exit next.pptx");
  EXPECT_TRUE(waitUntil([&] { return program.isVisible(); })) << "the clock comes back";
  EXPECT_TRUE(program.standsStill());
}

TEST_F(DeckSwitchSystemTest, TheNextShowIsRaisedFourTimesASecondForTwoSecondsAndThenLeftAlone) {
  runOut(next.path);
  ASSERT_TRUE(waitUntil([&] { return presentations.shows(next.path); }));
  // A raise and a poll each read the show's handle once; polls alone do so twice in three seconds.
  EXPECT_TRUE(waitUntil([&] { return handlesAsked() >= 6; }, 3000));
  EXPECT_FALSE(waitUntil([&] { return false; }, 2000)) << "the raises have ended by now";
  tell(L"clear-log");
  EXPECT_FALSE(waitUntil([&] { return handlesAsked() > 3; }, 2500));
}

TEST_F(DeckSwitchSystemTest, ADeckThatIsGoneLeavesTheClockInSightAndStopped) {
  runOut(L"C:\\no such folder\\gone.pptx");
  EXPECT_TRUE(program.standsStill());
  EXPECT_TRUE(program.isVisible());
  EXPECT_FALSE(logHas(L"Presentations.Open("));
}

TEST_F(DeckSwitchSystemTest, AnOpeningThatIsRejectedLeavesTheClockInSightAndStopped) {
  runOut(next.path, L"reject Presentations.Open");
  ASSERT_TRUE(waitUntil([&] { return logHas(L"Presentations.Open("); }));
  EXPECT_TRUE(program.standsStill());
  EXPECT_TRUE(program.isVisible());
  EXPECT_FALSE(presentations.shows(next.path));
}

TEST_F(DeckSwitchSystemTest, AfterANextDeckInTheCloudTheClockStaysAwayUntilAReset) {
  runOut(next.path, L"cloud-fullname on");
  ASSERT_TRUE(waitUntil([&] { return presentations.shows(next.path); }));
  ASSERT_TRUE(waitUntil([&] { return !program.isVisible(); }));
  tell(L"exit next.pptx");
  tell(L"close next.pptx");
  EXPECT_FALSE(waitUntil([&] { return program.isVisible(); }, 5000))
      << "by its address it was never seen as the deck that was waited for";
  program.command(kCommandReset);
  EXPECT_TRUE(waitUntil([&] { return program.isVisible(); }));
}

TEST_F(DeckSwitchSystemTest, AResetBeforeTheDeckIsOpenedOpensNothing) {
  runOut(next.path);
  program.command(kCommandReset);
  EXPECT_FALSE(waitUntil([&] { return logHas(L"Presentations.Open("); }, 2000));
  EXPECT_TRUE(waitUntil([&] { return !presentations.shows(talk.path); }))
      << "the old show had been told to go";
  EXPECT_TRUE(program.isVisible());
}

}  // namespace
}  // namespace mrl

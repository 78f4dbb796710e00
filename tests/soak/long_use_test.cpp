// The real program in use for as long as MARLUNE_MINUTES says: talk after talk runs out of its time
// in one instance, while another one counts the whole time. At the end neither may hold more than
// after the first talks, no end of a talk's time may be missing, and the time shown must be right.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "base/command_ids.h"
#include "base/wide_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "soak/phone.h"
#include "soak/second_hand.h"
#include "soak/upkeep.h"
#include "windows/program.h"
#include "windows/standin_fixture.h"
#include "windows/tone.h"

namespace mrl {
namespace {

using standin::TemporaryDeck;
using standin::waitUntil;

constexpr double kMostOffMs = 100;
constexpr int kOneUnansweredOf = 20;
constexpr int kSamplesBetween = 4;
constexpr int kWarmUpTalks = 6;  // each kind twice
constexpr uint32_t kTalkSeconds = 3;

double minutesAsked() {
  const char* const text = std::getenv("MARLUNE_MINUTES");
  return text ? std::atof(text) : 1;
}

/// What happens at the end of a talk's time.
enum class End { Black, ExitShow, NextDeck };

class LongUseTest : public testing::Test {
 protected:
  void SetUp() override {
    writeTone(decks.path() + L"\\tone.wav", 1);
    // One for the whole time: Wine keeps a handle of each call to a program that has gone.
    ASSERT_TRUE(presentations.start(L"powerpnt.exe"));
    ASSERT_NO_FATAL_FAILURE(startTalks());
    ASSERT_NO_FATAL_FAILURE(startSteady());
  }

  void startTalks() {
    form.duration = kTalkSeconds;
    form.sound = true;
    form.soundFile = u16From(decks.path() + L"\\tone.wav");
    form.prompt1 = {.enabled = true,
                    .sound = true,
                    .advance = 2,
                    .blinkSeconds = 1,
                    .soundFile = form.soundFile};
    form.pptFolder = u16From(decks.path());
    form.switchDeck = u16From(next.path);
    form.remotePort = static_cast<uint32_t>(talksPort);
    talks.prepare(form);
    ASSERT_TRUE(talks.start());
  }
  void startSteady() {
    Settings settings;
    settings.down = false;
    settings.autoMode = false;
    settings.windowX = 600;
    settings.remotePort = static_cast<uint32_t>(steadyPort);
    steady.prepare(settings);
    ASSERT_TRUE(steady.start());
    ASSERT_TRUE(secondHand.start());
  }

  double minute() const { return static_cast<double>(GetTickCount64() - startMs) / 60'000; }

  // --- a talk ---

  void tell(const std::wstring& command) { ASSERT_EQ(presentations.command(command), L"ok"); }
  template <class Condition>
  static bool soon(Condition&& condition) {
    return waitUntil(
        [&] {
          if (condition()) return true;
          Sleep(50);
          return false;
        },
        30'000);
  }
  bool says(const std::string& words) const {
    return talksPhone.state().find(words) != std::string::npos;
  }
  bool sees(const std::string& words) const {
    return soon([&] { return says(words); });
  }
  bool hasRunOut(End end) {
    switch (end) {
      case End::Black: return says("\"black\":true");
      case End::ExitShow: return !presentations.shows(deck.path);
      case End::NextDeck: return presentations.shows(next.path);
    }
    return false;
  }
  /// Waits for the end of the time, and for what is to happen then.
  void expectEnd(End end) {
    ++due;
    if (!soon([&] { return hasRunOut(end); })) {
      ADD_FAILURE() << "end " << due << " was missed; " << talksPhone.state();
      return;
    }
    ++fired;
    std::string time;
    EXPECT_TRUE(soon([&] { return !(time = timeIn(talksPhone.state())).empty(); }));
    EXPECT_TRUE(time == "00:00" || time.starts_with("已超时")) << "too early: " << time;
  }
  void save(End end) {
    const Settings before = form;
    form.duration = kTalkSeconds;
    form.black = end == End::Black;
    form.exitShow = end == End::ExitShow;
    form.switchPpt = end == End::NextDeck;
    EXPECT_TRUE(soon([&] { return talksPhone.save(before, form) || talks.settings() == form; }));
  }
  /// Again after a refusal: a machine that is too busy to answer in time is no fault of the
  /// program.
  static void press(const Phone& phone, const std::string& words) {
    EXPECT_TRUE(soon([&] { return phone.command(words); })) << words;
  }
  /// The time runs out again, from a duration that is set on the phone.
  void runOutAgain(End end) {
    if (end == End::Black) {
      EXPECT_TRUE(soon([&] {
        if (says("\"black\":false")) return true;
        (void)talksPhone.command("black");
        return false;
      }));
    }
    form.duration = 2;
    press(talksPhone, "duration?seconds=2");
    if (end == End::ExitShow) {
      EXPECT_TRUE(sees("\"showing\":false"));
      press(talksPhone, "begin");
    }
    expectEnd(end);
  }
  void closeAll(End end) {
    if (end == End::NextDeck) {
      tell(L"exit next.pptx");
      tell(L"close next.pptx");
    }
    tell(L"close talk.pptx");
    EXPECT_TRUE(sees("\"running\":false,\"paused\":false")) << "the clock is reset";
    EXPECT_TRUE(sees("\"showing\":false"));
    EXPECT_TRUE(sees("\"visible\":true"));
  }
  void talk(End end) {
    save(end);
    tell(L"clear-log");
    tell(L"open \"" + deck.path + L"\"");
    tell(L"show");
    // On a busy machine the show may be over by now.
    for (const char* const word : {"next", "previous", "shine"}) (void)talksPhone.command(word);
    expectEnd(end);
    if (end != End::NextDeck) runOutAgain(end);
    closeAll(end);
  }

  // --- between the talks ---

  void lookAtSettings(const Program& program) {
    program.command(kCommandOpenSettings);
    ASSERT_TRUE(waitUntil([&] { return program.settingsWindow() != nullptr; }));
    for (int page = kPageCount - 1; page >= 0; --page) {
      SendMessageW(program.settingsWindow(), WM_COMMAND, kFirstSection + static_cast<WPARAM>(page),
                   0);
    }
    ASSERT_TRUE(program.closeSettings());
    ++openings;
  }
  void playWithThePhones() {
    for (const char* const word : {"hide", "show", "clock-on", "clock-off", "shine"}) {
      press(steadyPhone, word);
    }
    for (const char* const word : {"toggle", "pause", "pause", "reset", "manual", "automatic"}) {
      press(talksPhone, word);
    }
    for (const Phone* phone : {&steadyPhone, &talksPhone}) {
      for (const char* const target : {"/", "/api/controls"}) {
        EXPECT_TRUE(soon([&] { return statusOf(phone->ask(get(target))) == 200; })) << target;
      }
    }
  }
  void sample() {
    const auto pause = secondHand.pause();
    Sleep(500);  // for sounds to end, and for what is left to paint
    ofTalks.push_back(upkeepOf(talks.id(), minute()));
    ofSteady.push_back(upkeepOf(steady.id(), minute()));
    std::printf("minute %.1f: %d talks, %d of %d ends seen\n", minute(), number, fired, due);
    std::fflush(stdout);
  }

  void report(const SecondHand::Seen& seen) const {
    std::printf("\n%.1f minutes, %d talks, settings window opened %d times\n", minute(), number,
                openings);
    std::printf("ends of a talk's time: %d due, %d fired, %d missed\n", due, fired, due - fired);
    std::printf("shown time: at most %.0f ms ahead of the wall clock, %.0f ms behind; %d answers\n",
                seen.shown.aheadMs(), seen.shown.behindMs(), seen.shown.count());
    std::printf("polls: %d, %d of them without an answer in time%s\n", seen.polls, seen.unanswered,
                seen.firstFailures.c_str());
    std::printf(
        "program  minute  working set KiB  private bytes KiB  handles  GDI  USER of all "
        "programs\n");
    print("talks", ofTalks);
    print("steady", ofSteady);
  }

  const Winsock winsock;
  const ULONGLONG startMs = GetTickCount64();
  const TemporaryFolder decks{L"decks of marlune"};
  const TemporaryDeck deck{L"talk.pptx"};
  const TemporaryDeck next{L"next.pptx"};
  standin::Client presentations;
  Program talks;
  Program steady;
  const int32_t talksPort = static_cast<int32_t>(somePort());
  const int32_t steadyPort = talksPort + 1;
  const Phone talksPhone{talksPort};
  const Phone steadyPhone{steadyPort};
  SecondHand secondHand{steadyPhone, talksPhone};
  Settings form;  // as the program of the talks has them
  std::vector<Upkeep> ofTalks;
  std::vector<Upkeep> ofSteady;
  int number = 0;
  int due = 0;
  int fired = 0;
  int openings = 0;
};

TEST_F(LongUseTest, ItHoldsNoMoreThanAtFirstEndsEveryTalkAndShowsTheTimeThatHasPassed) {
  const double minutes = minutesAsked();
  double nextSample = minutes / 10;
  while ((minute() < minutes || number < kWarmUpTalks) && !HasFatalFailure()) {
    talk(static_cast<End>(number % 3));
    lookAtSettings(number % 2 == 0 ? talks : steady);
    playWithThePhones();
    ++number;
    if (number >= kWarmUpTalks && minute() >= nextSample) {
      sample();
      nextSample += (minutes * 0.9) / (kSamplesBetween + 1);
    }
  }
  sample();
  const SecondHand::Seen seen = secondHand.stop();
  report(seen);
  EXPECT_EQ(growthIn(ofTalks), "");
  EXPECT_EQ(growthIn(ofSteady), "");
  EXPECT_EQ(due, fired);
  EXPECT_TRUE(seen.shown.isProven()) << "too few answers";
  EXPECT_LE(seen.shown.aheadMs(), kMostOffMs);
  EXPECT_LE(seen.shown.behindMs(), kMostOffMs);
  EXPECT_LE(seen.unanswered, seen.polls / kOneUnansweredOf) << "more than a busy machine explains";
}

}  // namespace
}  // namespace mrl

// Weeks of use on a clock of the tests: ticks, shows that come and go, a user at the menu and in
// the settings window, a phone, and a disk that fails. Invariants are checked after each step. A
// run is a few thousand steps; MARLUNE_STEPS sets another number.
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>

#include "base/text.h"
#include "http/hand_over.h"
#include "remote/controls.h"
#include "remote/remote_requests.h"
#include "settings/settings_format.h"
#include "settings_window/fixture.h"

namespace mrl {
namespace {

constexpr uint64_t kHourMs = 3'600'000;
constexpr int kShortRun = 2'000;  // steps of one seed

int stepsOfOneSeed() {
  const char* const asked = std::getenv("MARLUNE_STEPS");
  return asked ? std::atoi(asked) : kShortRun;
}

class EnduranceTest : public SettingsFixture, public testing::WithParamInterface<uint32_t> {
 protected:
  void SetUp() override {
    startWith(Settings{});
    files().putFile(kDeck, "");
    files().putFile(kOtherDeck, "");
    // As a service that runs, but without its thread.
    app.remote.running = true;
    random.seed(GetParam());
  }
  void TearDown() override {
    app.remote.running = false;
    std::cout << "seed " << GetParam() << ": " << days() << " days, " << answered << " requests, "
              << refused << " refused, " << expiries << " expiries, " << runs << " runs\n";
  }

  int upTo(int limit) { return std::uniform_int_distribution<int>(0, limit)(random); }
  bool oneIn(int count) { return upTo(count - 1) == 0; }
  template <class Rows>
  const auto& anyOf(const Rows& rows) {
    return rows[static_cast<size_t>(upTo(static_cast<int>(std::size(rows)) - 1))];
  }
  [[nodiscard]] double days() const { return static_cast<double>(passedMs) / (24.0 * kHourMs); }

  // --- the world ---

  void passTime() {
    uint64_t ms = kTickMs;
    if (oneIn(3)) ms = static_cast<uint64_t>(upTo(7'000));                // a busy machine
    if (oneIn(2'000)) ms = static_cast<uint64_t>(1 + upTo(8)) * kHourMs;  // asleep
    clock.advance(ms);
    passedMs += ms;
  }
  void changeTheShow() {
    switch (upTo(5)) {
      case 0:
        if (program->shows.empty()) startShow(oneIn(2) ? kDeck : kOtherDeck);
        break;
      case 1: endShow(); break;
      case 2: closeDecks(); break;
      case 3:
        if (!program->shows.empty()) turnTo(1 + upTo(9));
        break;
      case 4: program->dead = oneIn(4); break;
      default: program->runs = !oneIn(4);
    }
  }
  void changeTheDisk() {
    files().failing.clear();
    if (oneIn(3)) files().failing = {FilesFake::Operation::Replace};
  }

  // --- the user ---

  void pressCommand() {
    constexpr int kCommands[] = {kCommandToggleTimer,      kCommandReset,
                                 kCommandToggleResizeMode, kCommandDefaultSize,
                                 kCommandToggleVisibility, kCommandToggleBlack,
                                 kCommandShowClock,        kCommandHideClock,
                                 kCommandManualMode,       kCommandAutoMode,
                                 kCommandPauseOrResume,    kCommandOpenSettings};
    runCommand(app, anyOf(kCommands));
  }
  void useTheWindow() {
    if (!app.form.isOpen) return runCommand(app, kCommandOpenSettings);
    dialogs().answersYes = oneIn(2);
    const Control& control = anyOf(allControls());
    switch (control.kind) {
      case ControlKind::Section: view().click(control.id); break;
      case ControlKind::Check:
        if (control.id != kAutoStartCheck) view().click(control.id);  // starts the service's thread
        break;
      case ControlKind::Radio: view().click(control.id); break;
      case ControlKind::Combo:
        view().select(control.id, upTo(static_cast<int>(control.rows.size()) - 1));
        break;
      case ControlKind::NumberBox:
        view().type(control.id, decimal(upTo(oneIn(3) ? 9'000 : 3)));
        break;
      case ControlKind::TextBox: view().type(control.id, oneIn(3) ? u"" : u"#12AB34"); break;
      case ControlKind::Title: view().leave(view().focused); break;
      default:
        if (oneIn(4)) view().click(kCloseButton);
    }
  }

  // --- the phone ---

  std::string randomForm() {
    Settings asked = app.settings;
    asked.duration = static_cast<uint32_t>(upTo(100));
    asked.blink = oneIn(2);
    asked.black = oneIn(4);  // may exclude each other
    asked.exitShow = oneIn(4);
    asked.opacity = static_cast<uint32_t>(upTo(120));  // may be refused
    std::string form = "revision=" + controlsRevision(app.settings);
    if (oneIn(10)) form.back() = 'x';
    for (const ControlField& field : controlFields(asked)) {
      form += '&' + field.name + '=';
      if (const auto* const flag = std::get_if<bool*>(&field.target)) {
        form += **flag ? '1' : '0';
      } else {
        form += std::to_string(*std::get<uint32_t*>(field.target));
      }
    }
    return form;
  }
  void ask() {
    constexpr const char* kWords[] = {
        "state",   "toggle",   "reset",    "pause",    "start-stop",    "black",
        "shine",   "show",     "hide",     "manual",   "begin",         "automatic",
        "current", "next",     "previous", "exit",     "duration",      "countdown",
        "countup", "clock-on", "skip",     "controls", "controls-save", "nonsense"};
    const auto request = makeRequest(app.remote, HandOverInterfaces{clock, requests});
    request->command = anyOf(kWords);
    if (request->command == "duration") {
      request->argument = std::to_string(upTo(oneIn(3) ? 70'000 : 60));
    }
    if (request->command == "controls-save") request->body = randomForm();
    if (oneIn(50)) clock.advance(kRequestLifeMs + 1);
    const Settings before = app.settings;
    onRemoteRequest(app, *request);
    EXPECT_TRUE(request->done->wait(0)) << "not answered";
    EXPECT_TRUE(request->status == 200 || request->status == 409 || request->status == 503);
    ++(request->status == 200 ? answered : refused);
    if (request->status != 200) {
      EXPECT_EQ(app.settings, before) << "a refusal changed the settings";
    }
  }

  // --- what must hold ---

  void checkTimer(const TimerState& before, int64_t elapsedBefore) {
    EXPECT_GE(elapsedMs(), 0);
    if (phase() == TimerPhase::Idle) {
      EXPECT_EQ(app.timer.elapsedMs, 0);
    }
    const bool expired = app.timer.expiredFired && !before.expiredFired;
    if (expired) ++expiries;
    const bool isArmedAgain = before.expiredFired && !app.timer.expiredFired;
    if (isArmedAgain) {
      ++runs;
      EXPECT_LE(elapsedMs(), elapsedBefore) << "an alert was armed again in the middle of a run";
    }
  }
  /// Right after a tick.
  void checkExpiry() {
    const Settings& settings = app.settings;
    const bool isUp = settings.down && settings.duration > 0 && phase() == TimerPhase::Running &&
                      elapsedMs() / 1000 >= settings.duration;
    if (isUp) {
      EXPECT_TRUE(app.timer.expiredFired) << "a missed expiry";
    }
  }
  void checkSettings() {
    EXPECT_EQ(app.settings, saved()) << "the file is not the live record";
    EXPECT_FALSE(hasBlackConflict(app.settings));
  }
  void checkWindows() {
    EXPECT_EQ(app.blackActive, blackScreen.covering);
    EXPECT_EQ(app.resizeMode, toolbar.exists);
    EXPECT_EQ(app.form.isOpen, view().open);
    if (app.hiddenByRule) {
      EXPECT_FALSE(clockWindow.visible);
    }
    if (app.form.isOpen) {
      EXPECT_EQ(app.form.settingsDirty, !app.form.pendingEdits.empty() || app.form.portDirty);
      for (const auto& [id, dueMs] : app.form.pendingEdits) EXPECT_NE(findField(id), nullptr) << id;
    } else {
      EXPECT_TRUE(app.form.pendingEdits.empty());
    }
  }
  void checkPicture() {
    clockWindow.paintIfDue();
    if (clockWindow.visible) {
      EXPECT_EQ(seen.text, clockPicture(app).text) << "an old picture";
    }
  }
  /// What the fakes record would fill the memory in a long run.
  void forgetRecords() {
    outside.log.clear();
    clockWindow.calls.clear();
    view().calls.clear();
    view().written.clear();
    view().invalidated.clear();
    view().redrawnFrames.clear();
    dialogs().questions.clear();
    dialogs().information.clear();
    files().done.clear();
    requests.waitedMs.clear();
  }

  void live(int steps) {
    for (int step = 0; step < steps && !HasFailure(); ++step) {
      SCOPED_TRACE("step " + std::to_string(step));
      const TimerState before = app.timer;
      const int64_t elapsedBefore = elapsedMs();
      switch (upTo(40)) {
        case 0: changeTheShow(); break;
        case 1: changeTheDisk(); break;
        case 2: pressCommand(); break;
        case 3:
        case 4:
        case 5: useTheWindow(); break;
        case 6:
        case 7: ask(); break;
        default: break;
      }
      checkTimer(before, elapsedBefore);
      passTime();
      const TimerState beforeTick = app.timer;
      const int64_t elapsedBeforeTick = elapsedMs();
      tick(app);
      checkTimer(beforeTick, elapsedBeforeTick);
      checkExpiry();
      checkSettings();
      checkWindows();
      checkPicture();
      forgetRecords();
    }
  }

  std::mt19937 random;
  uint64_t passedMs = 0;
  int answered = 0;
  int refused = 0;
  int expiries = 0;
  int runs = 0;
};

TEST_P(EnduranceTest, WhateverHappensTheProgramKeepsItsPromises) {
  live(stepsOfOneSeed());
  EXPECT_GT(answered, 0);
}

INSTANTIATE_TEST_SUITE_P(Seeds, EnduranceTest, testing::Range(1U, 11U));

}  // namespace
}  // namespace mrl

// A complete App on fakes, with helpers for its tests.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/app_fake.h"
#include "core/clock_behaviour.h"
#include "core/tick.h"
#include "settings/settings_file.h"

namespace mrl {

class AppFixture : public ::testing::Test, protected AppFake {
 protected:
  AppFixture() {
    clockWindow.onPaint = [this] {
      const ClockPicture picture = pictureToPaint(app);
      seen = {picture.text, picture.blinkOn, picture.settings.background};
    };
  }

  static constexpr char16_t kDeck[] = u"C:\\talks\\demo.pptx";
  static constexpr char16_t kOtherDeck[] = u"C:\\talks\\other.pptx";
  static constexpr char16_t kSettingsPath[] = u"C:\\data\\settings.dat";
  static constexpr uint64_t kTickMs = 100;

  std::shared_ptr<FakeApplication> program = outside.automation.add(u"PowerPoint.Application");

  FilesFake& files() { return outside.files; }

  /// Starts the App with a settings file that holds `settings`.
  void startWith(const Settings& settings) {
    std::u16string error;
    ASSERT_TRUE(saveSettings(files(), kSettingsPath, settings, error));
    start();
  }
  void start() {
    app.remote.running = true;  // so that the service is not started: no network, no thread
    ASSERT_EQ(startApp(app, {}, kSettingsPath), std::nullopt);
    app.remote.running = false;
  }

  /// Ticks as the window timer does, for `ms`.
  void runFor(uint64_t ms) {
    for (uint64_t passed = 0; passed < ms; passed += kTickMs) {
      clock.advance(kTickMs);
      tick(app);
      clockWindow.paintIfDue();
    }
  }
  /// Ticks until the next poll, and not a tick longer.
  void waitForPoll() {
    const uint64_t before = app.lastPollMs;
    for (int ticks = 0; app.lastPollMs == before; ++ticks) {
      ASSERT_LT(ticks, 20);
      runFor(kTickMs);
    }
  }

  void startShow(const std::u16string& path, int32_t slide = 1) {
    const auto deck = program->addDeck(path);
    outside.addShowWindow(500);
    program->addShow(deck, 500, slide);
  }
  void turnTo(int32_t slide) { program->shows.front()->slide = slide; }
  /// The show ends; its deck stays open.
  void endShow() {
    program->shows.clear();
    outside.windows.windows.clear();
  }
  void closeDecks() { program->decks.clear(); }

  /// What the user sees of a visible clock: the last painted picture.
  struct Seen {
    std::u16string text;
    bool isAlert = false;
    uint32_t background = 0;
  };
  Seen seen;

  int64_t elapsedMs() const { return elapsedAt(app.timer, clock.nowMs()); }
  TimerPhase phase() const { return app.timer.phase; }
  Settings saved() {
    Settings record;
    std::u16string error;
    EXPECT_TRUE(loadSettings(files(), kSettingsPath, record, error));
    return record;
  }
};

}  // namespace mrl

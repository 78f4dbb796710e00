#include "remote/remote_commands.h"

#include <charconv>
#include <string_view>

#include "core/blackout.h"
#include "core/commands.h"
#include "core/expiry.h"
#include "core/timer.h"
#include "presentation/catalogue.h"
#include "presentation/documents.h"
#include "presentation/show_control.h"
#include "presentation/show_poll.h"
#include "remote/controls.h"

namespace mrl {
namespace {

constexpr char16_t kUnknown[] = u"未知操作。";
constexpr char16_t kFileGone[] = u"文件列表已变化或文件不在当前文件夹，请刷新。";
constexpr char16_t kBadDuration[] = u"时长须为 0–59999 秒。";
constexpr uint32_t kShineSeconds = 3;
constexpr uint64_t kOpenPulseMs = 2000;

/// The parameters of an action; not every action needs all of them.
struct Call {
  App& app;
  const std::string& command;
  const std::string& argument;
  std::u16string& error;
};

template <Command kCommand>
bool run(const Call& call) {
  runCommand(call.app, kCommand);
  return true;
}

bool doNothing(const Call& /*call*/) { return true; }

bool startOrStop(const Call& call) {
  App& app = call.app;
  if (app.timer.phase == TimerPhase::Running) return run<kCommandReset>(call);
  startTimer(app.timer, app.platform.clock.nowMs());
  return true;
}

/// A black screen can always be lifted, even after its show has ended.
bool toggleBlack(const Call& call) {
  const App& app = call.app;
  const bool isAllowed =
      app.platform.blackScreen.isCovering() || (app.lastStatus.running && !app.lastExcluded);
  if (isAllowed) return run<kCommandToggleBlack>(call);
  call.error = kNoShowToBlack;
  return false;
}

/// Hiding the clock remotely also pauses the timer; showing it again does not resume it.
bool toggleVisibility(const Call& call) {
  App& app = call.app;
  if (app.platform.clockWindow.isVisible()) pauseTimer(app.timer, app.platform.clock.nowMs());
  return run<kCommandToggleVisibility>(call);
}

bool blinkClock(const Call& call) {
  startBlink(call.app, kShineSeconds);
  return true;
}

void beginOpenPulse(App& app, const std::u16string& path) {
  app.startedShow = {path, {.untilMs = app.platform.clock.nowMs() + kOpenPulseMs}};
}

bool controlShow(const Call& call) {
  App& app = call.app;
  return sendShowCommand(app.platform.presentation(), app.automation, call.command, call.error);
}

bool leaveShow(const Call& call) {
  call.app.startedShow = {};
  return controlShow(call);
}

bool startShow(const Call& call) {
  App& app = call.app;
  if (!controlShow(call)) return false;
  const ShowStatus status = pollShowStatus(app.platform.presentation(), app.automation);
  if (status.running && !status.documentPath.empty()) beginOpenPulse(app, status.documentPath);
  return true;
}

bool findListed(const Call& call, std::u16string& path) {
  Files& files = call.app.platform.files;
  const auto list = listPresentations(files, call.app.settings.pptFolder);
  const auto row = findFile(list, call.argument);
  if (row == list.end()) {
    call.error = kFileGone;
    return false;
  }
  path = *row;
  return true;
}

bool playFile(const Call& call) {
  App& app = call.app;
  std::u16string path;
  if (!findListed(call, path)) return false;
  app.startedShow = {};
  if (!tryOpenDocument(app.platform.presentation(), app.automation, path, true, call.error)) {
    return false;
  }
  beginOpenPulse(app, path);
  return true;
}

bool openFile(const Call& call) {
  App& app = call.app;
  std::u16string path;
  return findListed(call, path) &&
         tryOpenDocument(app.platform.presentation(), app.automation, path, false, call.error);
}

bool closeFile(const Call& call) {
  App& app = call.app;
  std::u16string path;
  return findListed(call, path) &&
         closeDocument(app.platform.presentation(), app.automation, path, call.error);
}

bool skipFile(const Call& call) {
  App& app = call.app;
  std::u16string path;
  if (!findListed(call, path) || hasUnfinishedInput(app, call.error)) return false;
  Settings changed = app.settings;
  toggleSkip(app.platform.files, changed, path);
  return adoptSettings(app, changed, FormUpdate::All, call.error);
}

bool setDuration(const Call& call) {
  App& app = call.app;
  if (hasUnfinishedInput(app, call.error)) return false;
  int32_t seconds = 0;
  const char* const end = call.argument.data() + call.argument.size();
  const auto [stop, failure] = std::from_chars(call.argument.data(), end, seconds);
  if (failure != std::errc() || stop != end || seconds < 0 || seconds > kMaxDurationSeconds) {
    call.error = kBadDuration;
    return false;
  }
  Settings changed = app.settings;
  changed.duration = static_cast<uint32_t>(seconds);
  if (!adoptSettings(app, changed, FormUpdate::All, call.error)) return false;
  restartElapsed(app.timer, app.platform.clock.nowMs());
  app.blink.stop();
  return true;
}

template <bool Settings::*kField, bool kValue>
bool setSwitch(const Call& call) {
  if (hasUnfinishedInput(call.app, call.error)) return false;
  Settings changed = call.app.settings;
  changed.*kField = kValue;
  return adoptSettings(call.app, changed, FormUpdate::All, call.error);
}

struct Word {
  std::string_view word;
  bool (*action)(const Call& call);
};

/// Commands in mixed case or of two capitals are older names of the one above them.
constexpr Word kWords[] = {
    {"state", doNothing},
    {"toggle", run<kCommandToggleTimer>},
    {"StartPause", run<kCommandToggleTimer>},
    {"reset", run<kCommandReset>},
    {"Reset", run<kCommandReset>},
    {"pause", run<kCommandPauseOrResume>},
    {"PR", run<kCommandPauseOrResume>},
    {"start-stop", startOrStop},
    {"StartStop", startOrStop},
    {"black", toggleBlack},
    {"BW", toggleBlack},
    {"visibility", toggleVisibility},
    {"SH", toggleVisibility},
    {"show", run<kCommandShowClock>},
    {"hide", run<kCommandHideClock>},
    {"manual", run<kCommandManualMode>},
    {"CtrlHalfHand", run<kCommandManualMode>},
    {"automatic", run<kCommandAutoMode>},
    {"CtrlFullHand", run<kCommandAutoMode>},
    {"shine", blinkClock},
    {"Shine", blinkClock},
    {"begin", startShow},
    {"current", startShow},
    {"next", controlShow},
    {"previous", controlShow},
    {"exit", leaveShow},
    {"close", leaveShow},
    {"duration", setDuration},
    {"countdown", setSwitch<&Settings::down, true>},
    {"countup", setSwitch<&Settings::down, false>},
    {"clock-on", setSwitch<&Settings::machineTime, true>},
    {"clock-off", setSwitch<&Settings::machineTime, false>},
    {"file", playFile},
    {"open-file", openFile},
    {"close-file", closeFile},
    {"skip", skipFile},
};

}  // namespace

bool runRemoteCommand(App& app, const std::string& command, const std::string& argument,
                      std::u16string& error) {
  for (const Word& word : kWords) {
    if (word.word == command) return word.action({app, command, argument, error});
  }
  error = kUnknown;
  return false;
}

}  // namespace mrl

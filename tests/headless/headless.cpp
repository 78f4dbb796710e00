#include "headless/headless.h"

#include <cstdlib>
#include <random>

#include "base/text.h"
#include "core/commands.h"
#include "core/tick.h"
#include "remote/remote_requests.h"
#include "remote/remote_service.h"
#include "settings/settings_file.h"

namespace mrl {
namespace {

constexpr char16_t kSettingsPath[] = u"C:\\data\\settings.dat";
constexpr char16_t kFolder[] = u"C:\\talks";
constexpr int64_t kShowWindow = 500;
constexpr uint64_t kTickMs = 100;
constexpr int kPortTries = 20;

int32_t somePort() {
  std::random_device source;
  return std::uniform_int_distribution<int32_t>(20000, 60000)(source);
}

uint64_t numberFrom(const std::string& text) { return std::strtoull(text.c_str(), nullptr, 10); }

}  // namespace

Headless::Headless(const std::string& page) { served.fakes.serviceHost.pageBytes = page; }

std::string Headless::start(int32_t port) {
  Settings settings;
  settings.remoteAutoStart = false;  // the port is chosen below
  settings.pptFolder = kFolder;
  files().putFolder(kFolder);
  std::u16string error;
  if (!saveSettings(files(), kSettingsPath, settings, error)) return utf8From(error);
  if (startApp(served.app, {}, kSettingsPath)) return "the start-up failed";
  nextTickMs = clock.nowMs();
  std::string failure;
  for (int tries = 0; tries < (port == 0 ? kPortTries : 1); ++tries) {
    served.app.settings.remotePort = static_cast<uint32_t>(port == 0 ? somePort() : port);
    failure = startService();
    if (failure.empty()) break;
  }
  return failure;
}

std::string Headless::startService() {
  std::u16string error;
  return startServer(served.app, {}, error) ? "" : utf8From(error);
}

void Headless::finish() { finishApp(served.app); }

uint64_t Headless::msUntilTick() const {
  const uint64_t now = clock.nowMs();
  return now < nextTickMs ? nextTickMs - now : 0;
}

void Headless::tickIfDue() {
  if (msUntilTick() > 0) return;
  nextTickMs = clock.nowMs() + kTickMs;
  tick(served.app);
}

void Headless::runPosted() {
  for (const auto& request : requests.take()) onRemoteRequest(served.app, *request);
}

std::u16string Headless::inFolder(const std::string& name) {
  return std::u16string(kFolder) + u"\\" + utf16From(name);
}

std::string Headless::obey(const std::string& line) {
  const size_t blank = line.find(' ');
  const std::string word = line.substr(0, blank);
  const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
  if (word == "start" || word == "stop" || word == "restart") return obeyService(word);
  const bool known =
      obeyTime(word, rest) || obeyFolder(word, rest) || obeyShow(word, rest) || obeySwitch(word);
  return known ? "" : "unknown command: " + word;
}

std::string Headless::obeyService(const std::string& word) {
  if (word != "start") stopServer(served.app.remote);
  return word == "stop" ? "" : startService();
}

bool Headless::obeyTime(const std::string& word, const std::string& rest) {
  if (word == "command") {
    runCommand(served.app, static_cast<int>(numberFrom(rest)));
  } else if (word == "advance") {
    clock.push(numberFrom(rest));
  } else {
    return false;
  }
  return true;
}

bool Headless::obeyFolder(const std::string& word, const std::string& rest) {
  if (word == "add") {
    files().putFile(inFolder(rest), "deck");
  } else if (word == "remove") {
    files().remove(inFolder(rest));
  } else if (word == "folder") {
    served.app.settings.pptFolder = rest.empty() ? u"" : u"C:\\" + utf16From(rest);
  } else {
    return false;
  }
  return true;
}

bool Headless::obeyShow(const std::string& word, const std::string& rest) {
  if (word == "show") {
    served.fakes.outside.addShowWindow(kShowWindow);
    program->addShow(program->addDeck(inFolder(rest)), kShowWindow, 1);
  } else if (word == "slide") {
    if (!program->shows.empty()) {
      program->shows.front()->slide = static_cast<int32_t>(numberFrom(rest));
    }
  } else if (word == "end-show") {
    program->shows.clear();
    program->decks.clear();
    served.fakes.outside.windows.windows.clear();
  } else {
    return false;
  }
  return true;
}

bool Headless::obeySwitch(const std::string& word) {
  if (word == "show-clock") {
    runCommand(served.app, kCommandShowClock);
  } else if (word == "hide-clock") {
    runCommand(served.app, kCommandHideClock);
  } else if (word == "fail-saves") {
    files().failing.insert(FilesFake::Operation::Replace);
  } else if (word == "allow-saves") {
    files().failing.erase(FilesFake::Operation::Replace);
  } else if (word == "dirty" || word == "clean") {
    served.app.form.isOpen = served.app.form.settingsDirty = word == "dirty";
  } else if (word == "block" || word == "unblock") {
    blocked = word == "block";
  } else if (word == "quit") {
    hasQuit = true;
  } else {
    return false;
  }
  return true;
}

}  // namespace mrl

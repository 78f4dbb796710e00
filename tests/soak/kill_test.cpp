// Kills the real program again and again while it saves: whatever the moment, the settings file
// holds all that it held before or all that it was to hold. Several programs are killed at a time.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <random>
#include <thread>
#include <vector>

#include "base/wide_win.h"
#include "base/window_classes_win.h"
#include "remote/controls.h"
#include "settings/files_win.h"
#include "settings/settings_file.h"
#include "settings_window/control_table.h"
#include "soak/phone.h"
#include "windows/program.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

using standin::waitUntil;
using Random = std::mt19937;

constexpr int kPrograms = 3;
constexpr DWORD kPaintMs = 100;
constexpr int kEnoughToHit = 100;  // so many kills can't all miss the saves

uint32_t numberFrom(const char* variable, uint32_t otherwise) {
  const char* const text = std::getenv(variable);
  return text ? static_cast<uint32_t>(std::strtoul(text, nullptr, 10)) : otherwise;
}

uint32_t anyOf(Random& random, uint32_t lowest, uint32_t highest) {
  return std::uniform_int_distribution<uint32_t>(lowest, highest)(random);
}

enum class Way { Service, Click, Typing };
constexpr const char* kWayNames[] = {"over the service", "by a click", "by typing"};

/// What was found after the kills.
struct Tally {
  int kills = 0;
  int answered = 0;  // the service had said that it saved
  int old = 0;
  int fresh = 0;
  int damaged = 0;
  int emptyLeft = 0;  // within the save: its temporary file was made, but not written
  int wholeLeft = 0;  // within the save: it was written, but not in place

  int within() const { return emptyLeft + wholeLeft; }
  void add(const Tally& other) {
    kills += other.kills;
    answered += other.answered;
    old += other.old;
    fresh += other.fresh;
    damaged += other.damaged;
    emptyLeft += other.emptyLeft;
    wholeLeft += other.wholeLeft;
  }
};

/// When to kill, counted from the input that leads to a save. How long that takes depends on the
/// machine and the input, so each kill that came too early or too late moves the next ones: far at
/// first, less after each change of direction.
class Aim {
 public:
  double nextMs(Random& random) const {
    return middleMs * std::uniform_real_distribution<>(0.7, 1.3)(random);
  }
  void wasEarly() { move(true); }
  void wasLate() { move(false); }

 private:
  void move(bool later) {
    if (later != wentLater) step = std::max(1.1, std::sqrt(step));
    wentLater = later;
    middleMs = later ? middleMs * step : middleMs / step;
  }

  double middleMs = 10;
  double step = 2;
  bool wentLater = true;
};

void spin(double ms) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::duration<double, std::milli>(ms);
  while (Clock::now() < end) {
  }
}

/// One input to the program, and the settings that it is to save.
struct Input {
  Settings result;
  const Field* field = nullptr;  // for those in the settings window
  wchar_t digit = 0;             // for typing
};

/// Every field of the remote form gets another value.
Input inputOfForm(const Settings& old, Random& random) {
  Input input{.result = old};
  for (const ControlField& field : controlFields(input.result)) {
    if (bool* const* const flag = std::get_if<bool*>(&field.target)) {
      **flag = anyOf(random, 0, 1) != 0;
    } else {
      *std::get<uint32_t*>(field.target) =
          anyOf(random, static_cast<uint32_t>(field.minimum), static_cast<uint32_t>(field.maximum));
    }
  }
  input.result.black = false;  // with some others it would be refused
  input.result.perSlide = !old.perSlide;
  return input;
}

/// Those that change nothing but themselves.
bool isPlain(const Field& field, Way way) {
  if (way == Way::Click) {
    return field.kind == FieldKind::Flag && field.id != kAutoStartCheck && field.id != kBlackCheck;
  }
  return field.kind == FieldKind::Number && rangeOf(field.number()).lowest == 0;
}

const Field& anyPlainField(Way way, Random& random) {
  std::vector<const Field*> fields;
  for (const Field& field : allFields()) {
    if (isPlain(field, way)) fields.push_back(&field);
  }
  return *fields[anyOf(random, 0, static_cast<uint32_t>(fields.size()) - 1)];
}

/// A click on a check, or one digit typed over the number in a box: several would be saved one by
/// one if the window of another program took the focus in between.
Input inputInWindow(const Settings& old, Way way, Random& random) {
  const Field& field = anyPlainField(way, random);
  Input input{.result = old, .field = &field};
  if (way == Way::Click) {
    bool& flag = field.flag().in(input.result);
    flag = !flag;
  } else {
    uint32_t& number = field.number().in(input.result);
    const uint32_t before = number;
    while (number == before) number = anyOf(random, 0, 9);
    input.digit = static_cast<wchar_t>(L'0' + number);
  }
  return input;
}

/// Starts one program over and over in one folder, as its user would after a crash.
class Killer {
 public:
  explicit Killer(uint32_t seed) : random(seed) {
    port = static_cast<int32_t>(somePort());
    current.remotePort = static_cast<uint32_t>(port);
    current.windowX = current.windowY = 40;  // in sight, so that it stays
    program.prepare(current);
  }

  void kill(Way way) {
    const Settings old = current;
    if (!start(way)) return;
    const Input input =
        way == Way::Service ? inputOfForm(old, random) : inputInWindow(old, way, random);
    const FILETIME leftBefore = temporaryWrittenAt();
    const double afterMs = aims[static_cast<int>(way)].nextMs(random);
    std::optional<RawClient> client;
    if (way == Way::Service) {
      client.emplace(port);
      client->send(formRequest(old, input.result));
    } else if (!enter(input)) {
      return;
    }
    spin(afterMs);
    program.kill();
    const bool answered = client && statusOf(client->readAll()) == 200;
    SCOPED_TRACE(testing::Message()
                 << "a kill " << kWayNames[static_cast<int>(way)] << " after " << afterMs << " ms");
    note(way, old, input.result, answered, leftBefore);
  }

  Tally tallies[3];
  bool failed = false;  // it could not go on

 private:
  bool start(Way way) {
    const bool inWindow = way != Way::Service;
    failed = !program.start(L"", inWindow ? Program::Opening::Kept : Program::Opening::Closed);
    EXPECT_FALSE(failed) << "the program did not start again";
    return !failed;
  }

  /// Makes the input in the settings window, and leaves the last step to the program.
  bool enter(const Input& input) {
    const HWND window = program.settingsWindow();
    const HWND pane = FindWindowExW(window, nullptr, kContentClass, nullptr);
    const HWND control = GetDlgItem(pane, input.field->id);
    const WPARAM section = kFirstSection + findControl(input.field->id)->page;
    failed = control == nullptr || !send(window, WM_COMMAND, section, 0);
    if (!failed && input.digit == 0) {
      // The page is painted before the program reads on, which takes longer than to save.
      (void)waitUntil([&] { return !GetUpdateRect(control, nullptr, FALSE); });
      Sleep(kPaintMs);
      PostMessageW(control, BM_CLICK, 0, 0);
    } else if (!failed) {
      failed = !send(control, EM_SETSEL, 0, -1) || !send(control, WM_CHAR, input.digit, 1);
      PostMessageW(window, WM_COMMAND, kEnterKey, 0);
    }
    EXPECT_FALSE(failed) << "no input to control " << input.field->id;
    return !failed;
  }

  static bool send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, 10'000, &answer) != 0;
  }

  void note(Way way, const Settings& old, const Settings& fresh, bool answered,
            const FILETIME& leftBefore) {
    Tally& tally = tallies[static_cast<int>(way)];
    Aim& aim = aims[static_cast<int>(way)];
    ++tally.kills;
    if (answered) ++tally.answered;
    const FILETIME leftNow = temporaryWrittenAt();
    const bool within = CompareFileTime(&leftNow, &leftBefore) != 0 && leftNow.dwHighDateTime != 0;
    if (within) ++(bytesOf(temporaryPath()).empty() ? tally.emptyLeft : tally.wholeLeft);

    FilesWin files;
    std::u16string error;
    Settings found;
    const bool loads = loadSettings(files, u16From(program.settingsPath()), found, error);
    EXPECT_TRUE(loads) << "the file does not load; it has " << program.settingsBytes().size()
                       << " bytes";
    EXPECT_TRUE(!loads || found == old || found == fresh) << "neither the old values nor the new";
    EXPECT_TRUE(!answered || found == fresh) << "told to be saved, and is not";
    if (loads && found == fresh) {
      ++tally.fresh;
      aim.wasLate();
    } else if (loads && found == old) {
      ++tally.old;
      if (!within) aim.wasEarly();
    } else {
      ++tally.damaged;
      found = old;
      program.prepare(old);
    }
    current = found;
  }

  std::wstring temporaryPath() const { return program.settingsPath() + L".tmp"; }
  /// Zero without the file. What a kill has left stays until the next save, as it would on a disk.
  FILETIME temporaryWrittenAt() const {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW(temporaryPath().c_str(), GetFileExInfoStandard, &data);
    return data.ftLastWriteTime;
  }

  Program program;
  Settings current;
  int32_t port = 0;
  Random random;
  Aim aims[3];
};

/// Half of the kills go over the service, a quarter each by clicks and by typing.
Way wayOf(int kill) {
  if (kill % 2 == 0) return Way::Service;
  return kill % 4 == 1 ? Way::Click : Way::Typing;
}

void print(const char* name, const Tally& tally) {
  std::printf("%-17s %5d  %4d %4d %7d  %11d = %3d empty + %3d whole\n", name, tally.kills,
              tally.old, tally.fresh, tally.damaged, tally.within(), tally.emptyLeft,
              tally.wholeLeft);
}

TEST(KillTest, AKillWhileItSavesLeavesTheOldSettingsOrTheNew) {
  const Winsock winsock;
  const uint32_t seed = numberFrom("MARLUNE_SEED", std::random_device()());
  const int wanted = static_cast<int>(numberFrom("MARLUNE_KILLS", 20));
  std::printf("%d kills, seed %u\n", wanted, seed);
  std::fflush(stdout);
  const ULONGLONG startMs = GetTickCount64();

  std::vector<std::unique_ptr<Killer>> killers;
  for (uint32_t i = 0; i < kPrograms; ++i) killers.push_back(std::make_unique<Killer>(seed + i));
  std::atomic<int> next = 0;
  std::vector<std::thread> threads;
  for (const auto& killer : killers) {
    threads.emplace_back([&] {
      for (int kill = next++; kill < wanted && !killer->failed; kill = next++) {
        killer->kill(wayOf(kill));
        if (kill % 100 != 99) continue;
        std::printf("%d kills in %llu s\n", kill + 1, (GetTickCount64() - startMs) / 1000);
        std::fflush(stdout);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();

  std::printf("\nkills             number   old  new damaged  within save\n");
  Tally all;
  for (int way = 0; way < 3; ++way) {
    Tally tally;
    for (const auto& killer : killers) tally.add(killer->tallies[way]);
    print(kWayNames[way], tally);
    all.add(tally);
  }
  print("all", all);
  std::printf(
      "seed %u; %d programs at a time; %llu s; %d were told of their save before the kill\n", seed,
      kPrograms, (GetTickCount64() - startMs) / 1000, all.answered);
  EXPECT_EQ(all.kills, wanted);
  if (wanted >= kEnoughToHit) {
    EXPECT_GT(all.within(), 0) << "no kill fell within a save, so they show nothing";
    EXPECT_GT(all.old, 0);
    EXPECT_GT(all.fresh, 0);
  }
}

}  // namespace
}  // namespace mrl

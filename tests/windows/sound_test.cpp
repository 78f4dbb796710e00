// The alert sound as it reaches the sound card: the file named by MARLUNE_SOUND, which takes the
// samples a few times faster than a real card.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/command_ids.h"
#include "base/wide_win.h"
#include "windows/program.h"
#include "windows/standin_client.h"
#include "windows/tone.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SoundTest : public testing::Test {
 protected:
  void SetUp() override {
    const wchar_t* name = _wgetenv(L"MARLUNE_SOUND");
    if (name == nullptr) GTEST_SKIP() << "no file receives the sound";
    recording = name;
    std::ofstream(recording, std::ios::binary | std::ios::trunc);
  }
  std::u16string tone(int seconds) {
    const std::wstring path = folder.path() + L"\\tone " + std::to_wstring(seconds) + L".wav";
    writeTone(path, seconds);
    return u16From(path);
  }
  /// Starts the countdown with one second left until the sound.
  void runOut(Settings settings) {
    settings.duration = 1;
    settings.sound = true;
    program.prepare(settings);
    ASSERT_TRUE(program.start());
    program.command(kCommandToggleTimer);
  }
  uintmax_t recorded() const {
    std::error_code ignored;
    const uintmax_t size = std::filesystem::file_size(recording, ignored);
    return ignored ? 0 : size;
  }
  bool begins() {
    return waitUntil([&] { return recorded() > 0; });
  }
  bool grows() {
    const uintmax_t before = recorded();
    return waitUntil([&] { return recorded() > before; }, 2000);
  }
  /// True once nothing has been recorded for a second.
  bool ends() {
    uintmax_t last = recorded();
    ULONGLONG since = GetTickCount64();
    return waitUntil(
        [&] {
          if (recorded() != last) since = GetTickCount64();
          last = recorded();
          return GetTickCount64() - since > 1000;
        },
        15'000);
  }
  bool isAudible() const {
    std::ifstream file(recording, std::ios::binary);
    for (std::istreambuf_iterator<char> byte(file), end; byte != end; ++byte) {
      if (*byte != 0) return true;
    }
    return false;
  }

  std::filesystem::path recording;
  TemporaryFolder folder{L"marlune sound"};
  Program program;
};

TEST_F(SoundTest, TheToneBeginsWhenTheTimeIsUpAndIsCutOffAfterItsSeconds) {
  const ULONGLONG fromMs = GetTickCount64();
  runOut({.soundFile = tone(60), .soundSeconds = 2});
  ASSERT_TRUE(begins());
  ASSERT_TRUE(ends()) << "long before a minute is over";
  EXPECT_GE(GetTickCount64() - fromMs, 2000u);
  EXPECT_LT(recorded(), toneBytes(60));
  EXPECT_TRUE(isAudible());
  EXPECT_TRUE(program.isCounting());
}

TEST_F(SoundTest, WithoutSecondsTheFilePlaysToItsEnd) {
  runOut({.soundFile = tone(3)});
  ASSERT_TRUE(begins());
  ASSERT_TRUE(ends());
  EXPECT_GE(recorded(), toneBytes(3));
}

TEST_F(SoundTest, WithoutSecondsAResetCutsItOff) {
  runOut({.soundFile = tone(60)});
  ASSERT_TRUE(begins());
  EXPECT_TRUE(grows());
  program.command(kCommandReset);
  EXPECT_TRUE(ends());
  EXPECT_LT(recorded(), toneBytes(60));
}

TEST_F(SoundTest, SecondsBeyondTheEndOfTheFileDoNoHarm) {
  runOut({.soundFile = tone(1), .soundSeconds = 3});
  ASSERT_TRUE(begins());
  EXPECT_TRUE(ends());
  EXPECT_TRUE(program.isCounting());
  EXPECT_TRUE(program.waitForText(L"已超时 00:05"));
}

TEST_F(SoundTest, AFileThatIsGoneIsSilentAndTheTimerGoesOn) {
  runOut({.soundFile = u"C:\\no such folder\\tone.wav"});
  EXPECT_TRUE(program.waitForText(L"已超时 00:02"));
  EXPECT_EQ(recorded(), 0u);
}

}  // namespace
}  // namespace mrl

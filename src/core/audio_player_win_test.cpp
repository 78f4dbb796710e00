// The real player under the logic that uses it. What is audible is tested with the whole program.
#include "core/audio_player_win.h"

#include <windows.h>

#include <mmsystem.h>

#include <cstdio>

#include "base/replaced_import_win.h"
#include "base/wide_win.h"
#include "core/app_fixture.h"
#include "core/audio.h"

namespace mrl {
namespace {

constexpr char16_t kFailed[] = u"音频播放失败：";

/// A WAV file with a tenth of a second of silence.
std::string silence() {
  constexpr uint32_t kDataBytes = 800;
  std::string bytes;
  const auto put = [&](uint32_t value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  };
  bytes += "RIFF";
  put(36 + kDataBytes, 4);
  bytes += "WAVEfmt ";
  put(16, 4);    // size of this chunk
  put(1, 2);     // PCM, uncompressed
  put(1, 2);     // channel
  put(8000, 4);  // samples a second
  put(8000, 4);  // bytes a second
  put(1, 2);     // bytes a sample
  put(8, 2);     // bits a sample
  bytes += "data";
  put(kDataBytes, 4);
  return bytes + std::string(kDataBytes, '\x80');
}

UINT beeped = 0;
BOOL WINAPI beep(UINT kind) {
  beeped = kind;
  return TRUE;
}

class AudioPlayerWinTest : public AppFixture {
 protected:
  /// A file in the temporary folder; removed after the test.
  std::u16string fileWith(const std::string& bytes) {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    path = std::wstring(folder) + L"marlune sound.wav";
    FILE* file = _wfopen(path.c_str(), L"wb");
    EXPECT_NE(file, nullptr);
    fwrite(bytes.data(), 1, bytes.size(), file);
    fclose(file);
    return u16From(path);
  }
  void TearDown() override {
    closeAudio(real);
    DeleteFileW(path.c_str());
  }
  /// The mode that the MCI device reports; empty if none is open.
  static std::wstring mode() {
    wchar_t answer[64] = L"";
    mciSendStringW(L"status MarluneAudio mode", answer, 64, nullptr);
    return answer;
  }
  bool isToldWithReason() const {
    return real.lastError.starts_with(kFailed) &&
           real.lastError.size() > std::u16string_view(kFailed).size();
  }

  AudioPlayerWin player;
  App real{platform(outside.files, player)};
  std::wstring path;
};

TEST_F(AudioPlayerWinTest, AMissingFileIsToldWithTheSystemsReasonAndNothingIsOpen) {
  playAudio(real, u"C:\\no such folder\\no sound.wav", 1);
  EXPECT_TRUE(isToldWithReason());
  EXPECT_EQ(mode(), L"");
  EXPECT_EQ(real.soundStopMs, 0u);
}

TEST_F(AudioPlayerWinTest, AFileThatIsNoSoundIsToldWithTheSystemsReasonAndNothingIsOpen) {
  playAudio(real, fileWith("this is no sound"), 1);
  EXPECT_TRUE(isToldWithReason());
  EXPECT_EQ(mode(), L"");
  EXPECT_EQ(real.soundStopMs, 0u);
}

TEST_F(AudioPlayerWinTest, AFileOfNoKnownKindIsTold) {
  playAudio(real, u"C:\\windows", 1);
  EXPECT_TRUE(isToldWithReason());
  EXPECT_EQ(mode(), L"");
}

TEST_F(AudioPlayerWinTest, ClosingNothingDoesNoHarm) {
  player.close();
  player.close();
  EXPECT_EQ(mode(), L"");
}

TEST_F(AudioPlayerWinTest, ASoundWhosePathHasBlanksIsOpenedAndClosingItMakesWayForTheNext) {
  std::u16string error;
  const std::u16string sound = fileWith(silence());
  ASSERT_TRUE(player.open(sound, error)) << error.size();
  EXPECT_NE(mode(), L"");
  player.close();
  EXPECT_EQ(mode(), L"");
  EXPECT_TRUE(player.open(sound, error));
}

TEST_F(AudioPlayerWinTest, WithoutAFileTheSystemsWarningIsHeard) {
  const ReplacedImport<decltype(beep)> system("MessageBeep", beep);
  beeped = 0;
  playAudio(real, u"", 1);
  EXPECT_EQ(beeped, UINT{MB_ICONEXCLAMATION});
}

TEST_F(AudioPlayerWinTest, ABeepOpensNothing) {
  playAudio(real, u"", 1);
  EXPECT_EQ(mode(), L"");
  EXPECT_EQ(real.lastError, u"");
}

}  // namespace
}  // namespace mrl

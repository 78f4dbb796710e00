#include "core/audio.h"

namespace mrl {
namespace {

constexpr char16_t kPlaybackFailed[] = u"音频播放失败：";

}  // namespace

void playAudio(App& app, const std::u16string& path, int32_t seconds) {
  closeAudio(app);
  AudioPlayer& audio = app.platform.audio;
  if (path.empty()) {
    audio.beep();
    return;
  }
  std::u16string error;
  if (!audio.open(path, error) || !audio.play(error)) {
    setStatus(app, kPlaybackFailed + error);
    closeAudio(app);
    return;
  }
  if (seconds > 0) {
    app.soundStopMs = app.platform.clock.nowMs() + static_cast<uint64_t>(seconds) * 1000;
  }
}

void closeAudio(App& app) {
  app.platform.audio.close();
  app.soundStopMs = 0;
}

}  // namespace mrl

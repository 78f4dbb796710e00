#pragma once

#include "core/audio_player.h"

namespace mrl {

/// Uses the command strings of MCI, which plays in the background.
class AudioPlayerWin : public AudioPlayer {
 public:
  AudioPlayerWin() = default;
  AudioPlayerWin(const AudioPlayerWin&) = delete;
  AudioPlayerWin& operator=(const AudioPlayerWin&) = delete;
  ~AudioPlayerWin() override { stop(); }

  bool open(const std::u16string& path, std::u16string& error) override;
  bool play(std::u16string& error) override;
  void close() override { stop(); }
  void beep() override;

 private:
  static void stop();
};

}  // namespace mrl

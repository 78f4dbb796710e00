// The audio player for tests: records its calls.
#pragma once

#include <cassert>
#include <string>
#include <vector>

#include "core/audio_player.h"

namespace mrl {

class AudioPlayerFake : public AudioPlayer {
 public:
  bool open(const std::u16string& path, std::u16string& error) override {
    assert(!isOpen);
    calls.emplace_back("open");
    lastPath = path;
    if (openError.empty()) return isOpen = true;
    error = openError;
    return false;
  }
  bool play(std::u16string& error) override {
    assert(isOpen);
    calls.emplace_back("play");
    if (playError.empty()) return isPlaying = true;
    error = playError;
    return false;
  }
  void close() override {
    calls.emplace_back("close");
    isOpen = isPlaying = false;
  }
  void beep() override { calls.emplace_back("beep"); }
  /// The sound ends; nothing reports it.
  void reachEnd() { isPlaying = false; }

  std::u16string openError;  // not empty: the step fails with it
  std::u16string playError;

  bool isOpen = false;
  bool isPlaying = false;
  std::u16string lastPath;
  std::vector<std::string> calls;  // by name, in order
};

}  // namespace mrl

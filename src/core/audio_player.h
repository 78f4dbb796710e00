// Plays sound files.
#pragma once

#include <string>

namespace mrl {

/// UI thread only. Holds at most one sound; no call waits for a sound to end.
class AudioPlayer {
 public:
  virtual ~AudioPlayer() = default;
  /// Opens the file; the player detects its format. REQUIRES: no file is open.
  [[nodiscard]] virtual bool open(const std::u16string& path, std::u16string& error) = 0;
  /// Starts playing. REQUIRES: a file is open.
  [[nodiscard]] virtual bool play(std::u16string& error) = 0;
  /// Stops and closes the open file, if any.
  virtual void close() = 0;
  /// Plays the system's exclamation sound.
  virtual void beep() = 0;
};

}  // namespace mrl

// Plays sound files.
#pragma once

#include <string>

namespace mrl {

/// UI thread only. Holds one sound at most; nothing here waits for a sound to end.
class AudioPlayer {
 public:
  virtual ~AudioPlayer() = default;
  /// Opens the file, whose format the player finds out. REQUIRES: nothing is open.
  [[nodiscard]] virtual bool open(const std::u16string& path, std::u16string& error) = 0;
  /// Starts what is open.
  [[nodiscard]] virtual bool play(std::u16string& error) = 0;
  /// Stops and lets go of what is open, if anything is.
  virtual void close() = 0;
  /// The plain sound of the system for an exclamation.
  virtual void beep() = 0;
};

}  // namespace mrl

// The windows of the stand-in: one editing window for each deck, one show window for each show.
#pragma once

#include <windows.h>

#include <map>

namespace mrl::standin {

struct Options;
struct StandIn;

class DeckWindows {
 public:
  /// With the classes that the options name.
  explicit DeckWindows(const Options& options);
  DeckWindows(const DeckWindows&) = delete;
  ~DeckWindows();

  /// Makes the windows that the model lacks, ends those that it no longer has, repaints the rest.
  void follow(StandIn& standIn);
  /// Null when the show is gone.
  HWND ofShow(int showId) const;

 private:
  void followOnce(StandIn& standIn);

  std::map<int, HWND> editing;  // by deck
  std::map<int, HWND> showing;  // by show
  bool following = false;
  bool changed = false;
};

}  // namespace mrl::standin

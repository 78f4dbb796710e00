// The stand-in's windows: one editing window per deck, one show window per show.
#pragma once

#include <windows.h>

#include <map>

namespace mrl::standin {

struct Options;
struct StandIn;

class DeckWindows {
 public:
  /// Registers the window classes that the options name.
  explicit DeckWindows(const Options& options);
  DeckWindows(const DeckWindows&) = delete;
  ~DeckWindows();

  /// Creates the windows that the model lacks, destroys obsolete ones and repaints the rest.
  void follow(StandIn& standIn);
  /// Null if the show has ended.
  HWND ofShow(int showId) const;

 private:
  void followOnce(StandIn& standIn);

  std::map<int, HWND> editing;  // by deck
  std::map<int, HWND> showing;  // by show
  bool following = false;
  bool changed = false;
};

}  // namespace mrl::standin

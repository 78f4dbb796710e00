// The stand-in presentation program as one object. Single-threaded: calls of other processes,
// commands of tests and window messages all arrive through the message loop.
#pragma once

#include "standin/deck_windows.h"
#include "standin/faults.h"
#include "standin/journal.h"
#include "standin/model.h"
#include "standin/options.h"
#include "standin/server.h"

namespace mrl::standin {

struct StandIn {
  explicit StandIn(const Options& given);
  StandIn(const StandIn&) = delete;

  /// The name in window titles: "PowerPoint" or "WPS Presentation".
  std::wstring programName() const;
  /// Updates the windows to match the model. Call it after every change of the model.
  void showChanges() { windows.follow(*this); }

  // User input.
  void editingKey(int deckId, unsigned virtualKey, bool shift);
  void showKey(int showId, unsigned virtualKey);

  Options options;
  Model model;
  Faults faults;
  Journal journal;
  DeckWindows windows;
  Server server;
};

}  // namespace mrl::standin

// The stand-in's state as plain data: open decks and their shows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mrl::standin {

struct Deck {
  int id = 0;
  std::wstring path;
  int slides = 0;
  int selected = 1;  // current slide of the editing window
};

/// A running show. A deck has at most one.
struct Show {
  int id = 0;
  int deckId = 0;
  int slide = 1;
  bool atEnd = false;  // on the black screen that follows the last slide
};

/// Ids are never reused, so a reference to a closed deck or ended show is recognised as stale.
struct Model {
  std::vector<Deck> decks;  // in opening order
  std::vector<Show> shows;  // in starting order
  int activeDeck = 0;       // id; 0 when no deck is open
  int lastId = 0;

  Deck* deck(int id);
  Show* show(int id);
  Show* showOf(int deckId);
  /// Finds a deck by full path or file name, ignoring case. Null if there is none.
  Deck* named(std::wstring_view name);

  /// Returns the existing deck if the path is already open.
  Deck& open(const std::wstring& path, int slides);
  /// Also ends the deck's show.
  void close(int deckId);
  /// Starts at slide 1, even if the deck's show is already running. REQUIRES: the deck is open.
  Show& run(int deckId);
  void exit(int showId);

  /// Returns false and changes nothing if the show is gone or has no such slide.
  bool goTo(int showId, int slide);
  /// On the last slide ends the show, or first moves to the end screen if there is one.
  bool next(int showId, bool hasEndScreen);
  /// Stays on the first slide; from the end screen returns to the last slide.
  bool previous(int showId);
};

std::wstring fileName(const std::wstring& path);

}  // namespace mrl::standin

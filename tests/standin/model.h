// What the stand-in presentation program has open, as plain data: decks and the shows of them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mrl::standin {

struct Deck {
  int id = 0;
  std::wstring path;
  int slides = 0;
  int selected = 1;  // the slide that the editing window is on
};

/// A running show. A deck has one at most.
struct Show {
  int id = 0;
  int deckId = 0;
  int slide = 1;
  bool atEnd = false;  // on the black screen that follows the last slide
};

/// Ids are never used twice, so an object that outlives its deck or show is known to be dead.
struct Model {
  std::vector<Deck> decks;  // in the order of opening
  std::vector<Show> shows;  // in the order of starting
  int activeDeck = 0;       // id; 0 when no deck is open
  int lastId = 0;

  Deck* deck(int id);
  Show* show(int id);
  Show* showOf(int deckId);
  /// By full path or by file name, ignoring case. Null when no deck is called that.
  Deck* named(std::wstring_view name);

  /// A path that is open already gives the deck that is there.
  Deck& open(const std::wstring& path, int slides);
  /// The show of the deck ends with it.
  void close(int deckId);
  /// From slide 1, also when the deck is on show already. REQUIRES: the deck is open.
  Show& run(int deckId);
  void exit(int showId);

  /// False, and nothing moves, when the show is gone or has no such slide.
  bool goTo(int showId, int slide);
  /// Going on from the last slide ends the show, or leads to the screen after which it ends.
  bool next(int showId, bool hasEndScreen);
  /// Stays on the first slide; leads back from the end screen to the last one.
  bool previous(int showId);
};

std::wstring fileName(const std::wstring& path);

}  // namespace mrl::standin

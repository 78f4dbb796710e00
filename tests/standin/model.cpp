// Decks and shows of the stand-in.
#include "standin/model.h"

#include <algorithm>
#include <cwchar>

namespace mrl::standin {
namespace {

template <typename Item>
Item* withId(std::vector<Item>& items, int id) {
  const auto found =
      std::find_if(items.begin(), items.end(), [id](const Item& item) { return item.id == id; });
  return found == items.end() ? nullptr : &*found;
}

bool sameName(const std::wstring& left, std::wstring_view right) {
  return left.size() == right.size() && _wcsnicmp(left.data(), right.data(), left.size()) == 0;
}

}  // namespace

Deck* Model::deck(int id) { return withId(decks, id); }
Show* Model::show(int id) { return withId(shows, id); }

Show* Model::showOf(int deckId) {
  const auto found = std::find_if(shows.begin(), shows.end(),
                                  [deckId](const Show& show) { return show.deckId == deckId; });
  return found == shows.end() ? nullptr : &*found;
}

Deck* Model::named(std::wstring_view name) {
  const auto found = std::find_if(decks.begin(), decks.end(), [name](const Deck& deck) {
    return sameName(deck.path, name) || sameName(fileName(deck.path), name);
  });
  return found == decks.end() ? nullptr : &*found;
}

Deck& Model::open(const std::wstring& path, int slides) {
  const auto found = std::find_if(decks.begin(), decks.end(),
                                  [&](const Deck& deck) { return sameName(deck.path, path); });
  Deck& deck = found != decks.end()
                   ? *found
                   : decks.emplace_back(Deck{.id = ++lastId, .path = path, .slides = slides});
  activeDeck = deck.id;
  return deck;
}

void Model::close(int deckId) {
  if (const Show* show = showOf(deckId)) exit(show->id);
  std::erase_if(decks, [deckId](const Deck& deck) { return deck.id == deckId; });
  if (activeDeck == deckId) activeDeck = decks.empty() ? 0 : decks.back().id;
}

Show& Model::run(int deckId) {
  activeDeck = deckId;
  Show* running = showOf(deckId);
  if (!running) running = &shows.emplace_back(Show{.id = ++lastId, .deckId = deckId});
  running->slide = 1;
  running->atEnd = false;
  return *running;
}

void Model::exit(int showId) {
  std::erase_if(shows, [showId](const Show& show) { return show.id == showId; });
}

bool Model::goTo(int showId, int slide) {
  Show* running = show(showId);
  if (!running || slide < 1 || slide > deck(running->deckId)->slides) return false;
  running->slide = slide;
  running->atEnd = false;
  return true;
}

bool Model::next(int showId, bool hasEndScreen) {
  Show* running = show(showId);
  if (!running) return false;
  if (running->slide == deck(running->deckId)->slides) {
    if (hasEndScreen && !running->atEnd)
      running->atEnd = true;
    else
      exit(showId);
    return true;
  }
  return goTo(showId, running->slide + 1);
}

bool Model::previous(int showId) {
  const Show* running = show(showId);
  if (!running) return false;
  if (running->atEnd) return goTo(showId, running->slide);
  return running->slide == 1 || goTo(showId, running->slide - 1);
}

std::wstring fileName(const std::wstring& path) {
  return path.substr(path.find_last_of(L"\\/") + 1);  // npos + 1 is 0: the path is a bare name
}

}  // namespace mrl::standin

// Start-up of the stand-in, and its keys.
#include "standin/stand_in.h"

#include <cwchar>
#include <iterator>

namespace mrl::standin {
namespace {

void noteKey(Journal& journal, unsigned virtualKey) {
  wchar_t line[16];
  swprintf(line, std::size(line), L"key 0x%02X", virtualKey);
  journal.add(line);
}

}  // namespace

StandIn::StandIn(const Options& given) : options(given), windows(given) {
  journal.alsoTo(options.log);
  if (options.deck.empty()) return;
  const Deck& deck = model.open(options.deck, options.slides);
  if (options.show) model.run(deck.id);
  showChanges();
}

std::wstring StandIn::programName() const {
  return options.progIds.front() == L"PowerPoint.Application" ? L"PowerPoint" : L"WPS Presentation";
}

void StandIn::editingKey(int deckId, unsigned virtualKey, bool shift) {
  noteKey(journal, virtualKey);
  if (virtualKey != VK_F5) return;
  Show& show = model.run(deckId);
  if (shift) show.slide = model.deck(deckId)->selected;
  showChanges();
}

void StandIn::showKey(int showId, unsigned virtualKey) {
  noteKey(journal, virtualKey);
  switch (virtualKey) {
    case VK_RIGHT: model.next(showId, faults.endScreen); break;
    case VK_LEFT: model.previous(showId); break;
    case VK_ESCAPE: model.exit(showId); break;
    default: return;
  }
  showChanges();
}

}  // namespace mrl::standin

// The command table and the commands.
#include "standin/commands.h"

#include <algorithm>
#include <iterator>

#include "standin/stand_in.h"

namespace mrl::standin {
namespace {

using Words = std::vector<std::wstring>;  // the arguments, without the command name

const std::wstring kOk = L"ok";
const std::wstring kNoDeck = L"error: no such deck";
const std::wstring kNoShow = L"error: no such show";
const std::wstring kNoSwitch = L"error: on or off";
const std::wstring kRefused = L"error: the system refused";

std::wstring word(const Words& words, size_t index) {
  return index < words.size() ? words[index] : L"";
}

int number(const Words& words, size_t index, int otherwise) {
  return index < words.size() ? _wtoi(words[index].c_str()) : otherwise;
}

Deck* deckOf(StandIn& standIn, const std::wstring& name) {
  Model& model = standIn.model;
  return name.empty() ? model.deck(model.activeDeck) : model.named(name);
}

Show* showOf(StandIn& standIn, const std::wstring& name) {
  Model& model = standIn.model;
  if (name.empty()) return model.shows.empty() ? nullptr : &model.shows.back();
  const Deck* deck = model.named(name);
  return deck ? model.showOf(deck->id) : nullptr;
}

HWND showWindowOf(StandIn& standIn, const std::wstring& name) {
  const Show* show = showOf(standIn, name);
  return show ? standIn.windows.ofShow(show->id) : nullptr;
}

std::wstring open(StandIn& standIn, const Words& words) {
  standIn.model.open(words[0], number(words, 1, standIn.options.slides));
  return kOk;
}

std::wstring close(StandIn& standIn, const Words& words) {
  const Deck* deck = deckOf(standIn, word(words, 0));
  if (!deck) return kNoDeck;
  standIn.model.close(deck->id);
  return kOk;
}

std::wstring activate(StandIn& standIn, const Words& words) {
  const Deck* deck = deckOf(standIn, words[0]);
  if (!deck) return kNoDeck;
  standIn.model.activeDeck = deck->id;
  return kOk;
}

std::wstring select(StandIn& standIn, const Words& words) {
  Deck* deck = deckOf(standIn, word(words, 1));
  if (!deck) return kNoDeck;
  const int slide = number(words, 0, 0);
  if (slide < 1 || slide > deck->slides) return L"error: no such slide";
  deck->selected = slide;
  return kOk;
}

std::wstring show(StandIn& standIn, const Words& words) {
  const Deck* deck = deckOf(standIn, word(words, 0));
  if (!deck) return kNoDeck;
  standIn.options.monitor = number(words, 1, standIn.options.monitor);
  standIn.model.run(deck->id);
  return kOk;
}

std::wstring goTo(StandIn& standIn, const Words& words) {
  const Show* show = showOf(standIn, word(words, 1));
  if (!show) return kNoShow;
  return standIn.model.goTo(show->id, number(words, 0, 0)) ? kOk : L"error: no such slide";
}

std::wstring next(StandIn& standIn, const Words& words) {
  const Show* show = showOf(standIn, word(words, 0));
  if (!show) return kNoShow;
  standIn.model.next(show->id, standIn.faults.endScreen);
  return kOk;
}

std::wstring previous(StandIn& standIn, const Words& words) {
  const Show* show = showOf(standIn, word(words, 0));
  if (!show) return kNoShow;
  standIn.model.previous(show->id);
  return kOk;
}

std::wstring exitShow(StandIn& standIn, const Words& words) {
  const Show* show = showOf(standIn, word(words, 0));
  if (!show) return kNoShow;
  standIn.model.exit(show->id);
  return kOk;
}

std::wstring minimiseShow(StandIn& standIn, const Words& words) {
  const HWND window = showWindowOf(standIn, word(words, 0));
  if (!window) return kNoShow;
  ShowWindow(window, SW_MINIMIZE);
  return kOk;
}

std::wstring restoreShow(StandIn& standIn, const Words& words) {
  const HWND window = showWindowOf(standIn, word(words, 0));
  if (!window) return kNoShow;
  ShowWindow(window, SW_RESTORE);
  return kOk;
}

/// Makes the show window smaller than its monitor by that many pixels, on one side or on all.
std::wstring insetShow(StandIn& standIn, const Words& words) {
  const HWND window = showWindowOf(standIn, L"");
  if (!window) return kNoShow;
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  RECT area = monitor.rcMonitor;
  const int pixels = number(words, 0, 0);
  const std::wstring side = word(words, 1).empty() ? L"all" : words[1];
  if (side == L"all" || side == L"left") area.left += pixels;
  if (side == L"all" || side == L"top") area.top += pixels;
  if (side == L"all" || side == L"right") area.right -= pixels;
  if (side == L"all" || side == L"bottom") area.bottom -= pixels;
  SetWindowPos(window, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
  return kOk;
}

std::wstring state(StandIn& standIn, const Words&) {
  Model& model = standIn.model;
  const Deck* active = model.deck(model.activeDeck);
  const wchar_t* listed = standIn.options.unlisted ? L"unlisted" : L"on";
  std::wstring line = std::wstring(L"automation ") +
                      (standIn.server.announced() ? listed : L"off") + L"; active " +
                      (active ? fileName(active->path) : L"none");
  for (const Deck& deck : model.decks) {
    const Show* show = model.showOf(deck.id);
    line += L"; deck " + fileName(deck.path) + L" slides " + std::to_wstring(deck.slides) +
            L" selected " + std::to_wstring(deck.selected) + L" show " +
            (!show         ? L"none"
             : show->atEnd ? L"end"
                           : std::to_wstring(show->slide));
  }
  return line;
}

std::wstring log(StandIn& standIn, const Words&) { return standIn.journal.text(); }

std::wstring clearLog(StandIn& standIn, const Words&) {
  standIn.journal.clear();
  return kOk;
}

template <FaultList Faults::*list>
std::wstring addFault(StandIn& standIn, const Words& words) {
  if (word(words, 1) == L"off")
    (standIn.faults.*list).remove(words[0]);
  else
    (standIn.faults.*list).add(words[0], number(words, 1, 0));
  return kOk;
}

template <bool Faults::*flag>
std::wstring switchFault(StandIn& standIn, const Words& words) {
  if (words[0] != L"on" && words[0] != L"off") return kNoSwitch;
  standIn.faults.*flag = words[0] == L"on";
  return kOk;
}

std::wstring unlisted(StandIn& standIn, const Words& words) {
  if (words[0] != L"on" && words[0] != L"off") return kNoSwitch;
  standIn.options.unlisted = words[0] == L"on";
  return standIn.server.list(standIn.options) ? kOk : kRefused;
}

std::wstring hang(StandIn& standIn, const Words& words) {
  standIn.faults.hangMs = std::max(0, number(words, 0, 0));
  return kOk;
}

std::wstring freeze(StandIn&, const Words& words) {
  // Posted, so that the reply is sent first.
  PostThreadMessageW(GetCurrentThreadId(), kFreeze, std::max(0, number(words, 0, 0)), 0);
  return kOk;
}

std::wstring clearFaults(StandIn& standIn, const Words&) {
  standIn.faults = {};
  return kOk;
}

std::wstring withdraw(StandIn& standIn, const Words&) {
  standIn.server.withdraw();
  return kOk;
}

std::wstring restoreAutomation(StandIn& standIn, const Words&) {
  return standIn.server.announce(standIn) ? kOk : kRefused;
}

std::wstring registerNow(StandIn& standIn, const Words&) {
  return registerProgIds(standIn.options.progIds) ? kOk : L"error: the registry refused";
}

std::wstring unregisterNow(StandIn& standIn, const Words&) {
  unregisterProgIds(standIn.options.progIds);
  return kOk;
}

std::wstring die(StandIn& standIn, const Words&) {
  standIn.server.crash();
  return kOk;
}

std::wstring quit(StandIn&, const Words&) {
  PostQuitMessage(0);
  return kOk;
}

struct CommandRow {
  const wchar_t* name;
  size_t atLeast;  // minimum number of arguments
  const wchar_t* usage;
  std::wstring (*handler)(StandIn&, const Words&);
};

constexpr CommandRow kCommands[] = {
    {L"open", 1, L"<path> [slides]", open},
    {L"close", 0, L"[deck]", close},
    {L"activate", 1, L"<deck>", activate},
    {L"select", 1, L"<slide> [deck]", select},
    {L"show", 0, L"[deck] [monitor]", show},
    {L"goto", 1, L"<slide> [deck]", goTo},
    {L"next", 0, L"[deck]", next},
    {L"previous", 0, L"[deck]", previous},
    {L"exit", 0, L"[deck]", exitShow},
    {L"minimise-show", 0, L"[deck]", minimiseShow},
    {L"restore-show", 0, L"[deck]", restoreShow},
    {L"inset-show", 1, L"<pixels> [left|top|right|bottom|all]", insetShow},
    {L"state", 0, L"", state},
    {L"log", 0, L"", log},
    {L"clear-log", 0, L"", clearLog},
    {L"fail", 1, L"<member> [count|off]", addFault<&Faults::failing>},
    // Fails with RPC_E_CALL_REJECTED, like a busy program.
    {L"reject", 1, L"<member> [count|off]", addFault<&Faults::rejected>},
    {L"nonsense", 1, L"<member> [count|off]", addFault<&Faults::nonsense>},
    {L"die-on", 1, L"<member>", addFault<&Faults::deadly>},
    {L"hang", 1, L"<ms>", hang},      // during the next call
    {L"freeze", 1, L"<ms>", freeze},  // immediately: all calls and windows
    {L"empty-fullname", 1, L"on|off", switchFault<&Faults::emptyFullName>},
    // FullName becomes an https address, as for a file in a synchronised folder; Name is unchanged.
    {L"cloud-fullname", 1, L"on|off", switchFault<&Faults::cloudFullName>},
    {L"hwnd-zero", 1, L"on|off", switchFault<&Faults::hwndZero>},
    // Next on the last slide shows a black screen, on which View.Slide fails; only the Next after
    // that ends the show.
    {L"end-screen", 1, L"on|off", switchFault<&Faults::endScreen>},
    // Registers neither a running object nor a class object, as seen by a client with other rights.
    // Only the windows lead to the application.
    {L"unlisted", 1, L"on|off", unlisted},
    {L"clear-faults", 0, L"", clearFaults},
    {L"withdraw", 0, L"", withdraw},
    {L"restore-automation", 0, L"", restoreAutomation},
    {L"register", 0, L"", registerNow},
    {L"unregister", 0, L"", unregisterNow},
    {L"die", 0, L"", die},
    {L"quit", 0, L"", quit},
};

}  // namespace

std::wstring runCommand(StandIn& standIn, const std::wstring& text) {
  Words words = splitArguments(text);
  const std::wstring name = word(words, 0);
  const auto* row =
      std::find_if(std::begin(kCommands), std::end(kCommands),
                   [&](const CommandRow& candidate) { return candidate.name == name; });
  if (row == std::end(kCommands)) return L"error: no command \"" + name + L"\"";
  words.erase(words.begin());
  if (words.size() < row->atLeast) return L"error: " + name + L" " + row->usage;
  const std::wstring reply = row->handler(standIn, words);
  standIn.showChanges();
  return reply;
}

}  // namespace mrl::standin

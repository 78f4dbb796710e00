// The table of members and their handlers.
#include "standin/members.h"

#include "standin/stand_in.h"

namespace mrl::standin {
namespace {

using Outcome = std::optional<Value>;

/// A property that returns another object of the same deck or show; fails if that is gone.
template <ObjectKind target>
Outcome ofDeck(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  if (!standIn.model.deck(self.id)) return std::nullopt;
  return ObjectRef{target, self.id};
}

template <ObjectKind target>
Outcome ofShow(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  if (!standIn.model.show(self.id)) return std::nullopt;
  return ObjectRef{target, self.id};
}

template <ObjectKind target>
Outcome ofApplication(StandIn&, const ObjectRef&, const Arguments&) {
  return ObjectRef{target};
}

template <ObjectKind target>
Outcome ofActiveDeck(StandIn& standIn, const ObjectRef&, const Arguments& none) {
  return ofDeck<target>(standIn, ObjectRef{.id = standIn.model.activeDeck}, none);
}

Outcome applicationName(StandIn& standIn, const ObjectRef&, const Arguments&) {
  return standIn.programName();
}

template <auto list>
Outcome countOf(StandIn& standIn, const ObjectRef&, const Arguments&) {
  return static_cast<int>((standIn.model.*list).size());
}

template <auto list, ObjectKind target>
Outcome itemOf(StandIn& standIn, const ObjectRef&, const Arguments& arguments) {
  const auto& items = standIn.model.*list;
  const int index = std::get<int>(arguments[0]);
  if (index < 1 || index > static_cast<int>(items.size())) return std::nullopt;
  return ObjectRef{target, items[index - 1].id};
}

Outcome documentWindowCount(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  return standIn.model.deck(self.id) ? 1 : 0;
}

Outcome documentWindowItem(StandIn& standIn, const ObjectRef& self, const Arguments& arguments) {
  if (std::get<int>(arguments[0]) != 1) return std::nullopt;
  return ofDeck<ObjectKind::DocumentWindow>(standIn, self, arguments);
}

Outcome openPresentation(StandIn& standIn, const ObjectRef&, const Arguments& arguments) {
  const auto& path = std::get<std::wstring>(arguments[0]);
  if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) return std::nullopt;
  return ObjectRef{ObjectKind::Presentation, standIn.model.open(path, standIn.options.slides).id};
}

Outcome fullName(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  const Deck* deck = standIn.model.deck(self.id);
  if (!deck) return std::nullopt;
  if (standIn.faults.emptyFullName) return std::wstring();
  if (standIn.faults.cloudFullName)
    return L"https://cloud.example/Documents/" + fileName(deck->path);
  return deck->path;
}

Outcome presentationName(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  const Deck* deck = standIn.model.deck(self.id);
  if (!deck) return std::nullopt;
  return fileName(deck->path);
}

Outcome closePresentation(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  if (!standIn.model.deck(self.id)) return std::nullopt;
  standIn.model.close(self.id);
  return Value();
}

Outcome runShow(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  if (!standIn.model.deck(self.id)) return std::nullopt;
  return ObjectRef{ObjectKind::SlideShowWindow, standIn.model.run(self.id).id};
}

Outcome presentationOfShow(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  const Show* show = standIn.model.show(self.id);
  if (!show) return std::nullopt;
  return ObjectRef{ObjectKind::Presentation, show->deckId};
}

Outcome showHandle(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  if (!standIn.model.show(self.id)) return std::nullopt;
  if (standIn.faults.hwndZero) return 0;
  // Only 32 bits of a handle are significant, so automation can pass it as an integer.
  return static_cast<int>(reinterpret_cast<intptr_t>(standIn.windows.ofShow(self.id)));
}

Outcome shownSlide(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  const Show* show = standIn.model.show(self.id);
  if (!show || show->atEnd) return std::nullopt;
  return ObjectRef{ObjectKind::Slide, self.id, show->slide};
}

Outcome selectedSlide(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  const Deck* deck = standIn.model.deck(self.id);
  if (!deck) return std::nullopt;
  return ObjectRef{ObjectKind::Slide, self.id, deck->selected};
}

Outcome goToSlide(StandIn& standIn, const ObjectRef& self, const Arguments& arguments) {
  if (!standIn.model.goTo(self.id, std::get<int>(arguments[0]))) return std::nullopt;
  return Value();
}

Outcome nextSlide(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  if (!standIn.model.next(self.id, standIn.faults.endScreen)) return std::nullopt;
  return Value();
}

Outcome previousSlide(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  if (!standIn.model.previous(self.id)) return std::nullopt;
  return Value();
}

Outcome exitShow(StandIn& standIn, const ObjectRef& self, const Arguments&) {
  if (!standIn.model.show(self.id)) return std::nullopt;
  standIn.model.exit(self.id);
  return Value();
}

Outcome slideIndex(StandIn&, const ObjectRef& self, const Arguments&) { return self.slide; }

using enum ObjectKind;

constexpr Member kMembers[] = {
    {Application, L"Name", kGet, L"", applicationName},
    {Application, L"Presentations", kGet, L"", ofApplication<Presentations>},
    {Application, L"SlideShowWindows", kGet, L"", ofApplication<SlideShowWindows>},
    {Application, L"ActivePresentation", kGet, L"", ofActiveDeck<Presentation>},
    {Application, L"ActiveWindow", kGet, L"", ofActiveDeck<DocumentWindow>},
    {Presentations, L"Count", kGet, L"", countOf<&Model::decks>},
    {Presentations, L"Item", kMethodOrGet, L"i", itemOf<&Model::decks, Presentation>},
    {Presentations, L"Open", kMethod, L"siii", openPresentation},
    {SlideShowWindows, L"Count", kGet, L"", countOf<&Model::shows>},
    {SlideShowWindows, L"Item", kMethodOrGet, L"i", itemOf<&Model::shows, SlideShowWindow>},
    {DocumentWindows, L"Count", kGet, L"", documentWindowCount},
    {DocumentWindows, L"Item", kMethodOrGet, L"i", documentWindowItem},
    {Presentation, L"FullName", kGet, L"", fullName},
    {Presentation, L"Name", kGet, L"", presentationName},
    {Presentation, L"Close", kMethod, L"", closePresentation},
    {Presentation, L"Windows", kGet, L"", ofDeck<DocumentWindows>},
    {Presentation, L"SlideShowSettings", kGet, L"", ofDeck<SlideShowSettings>},
    {SlideShowSettings, L"Run", kMethod, L"", runShow},
    {SlideShowWindow, L"Application", kGet, L"", ofShow<Application>},
    {SlideShowWindow, L"View", kGet, L"", ofShow<SlideShowView>},
    {SlideShowWindow, L"Presentation", kGet, L"", presentationOfShow},
    {SlideShowWindow, L"HWND", kGet, L"", showHandle},
    {SlideShowView, L"Slide", kGet, L"", shownSlide},
    {SlideShowView, L"GotoSlide", kMethod, L"i", goToSlide},
    {SlideShowView, L"Next", kMethod, L"", nextSlide},
    {SlideShowView, L"Previous", kMethod, L"", previousSlide},
    {SlideShowView, L"Exit", kMethod, L"", exitShow},
    {DocumentWindow, L"Application", kGet, L"", ofDeck<Application>},
    {DocumentWindow, L"View", kGet, L"", ofDeck<DocumentView>},
    {DocumentView, L"Slide", kGet, L"", selectedSlide},
    {Slide, L"SlideIndex", kGet, L"", slideIndex},
};

}  // namespace

std::span<const Member> members() { return kMembers; }

const wchar_t* objectName(ObjectKind kind) {
  switch (kind) {
    case Application: return L"Application";
    case Presentations: return L"Presentations";
    case SlideShowWindows: return L"SlideShowWindows";
    case DocumentWindows: return L"DocumentWindows";
    case Presentation: return L"Presentation";
    case SlideShowSettings: return L"SlideShowSettings";
    case SlideShowWindow: return L"SlideShowWindow";
    case SlideShowView: return L"SlideShowView";
    case DocumentWindow: return L"DocumentWindow";
    case DocumentView: return L"DocumentView";
    case Slide: return L"Slide";
  }
  return L"";
}

}  // namespace mrl::standin

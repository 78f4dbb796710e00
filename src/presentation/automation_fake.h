// In-memory presentation programs: a small working model of their object model. Any member can be
// made to fail or to return nonsense; every call is logged.
#pragma once

#include <cassert>
#include <charconv>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <type_traits>
#include <vector>

#include "base/text.h"
#include "presentation/automation.h"

namespace mrl {

inline constexpr AutomationResult kFakeUnknownName = static_cast<int32_t>(0x80020006);
inline constexpr AutomationResult kFakeWrongKind = static_cast<int32_t>(0x80020003);
inline constexpr AutomationResult kFakeServerGone = static_cast<int32_t>(0x800706BA);

struct FakeDeck {
  std::u16string path;
  std::optional<int32_t> editedSlide = 1;  // of its only document window; nullopt: no window
};

struct FakeShow {
  std::shared_ptr<FakeDeck> deck;
  int32_t slide = 1;
  int32_t window = 0;
};

struct FakeApplication {
  std::u16string progId;
  bool runs = true;        // can be found by its ProgID
  bool startable = false;  // can be started
  bool dead = false;       // every call through its objects fails
  std::vector<std::shared_ptr<FakeDeck>> decks;
  std::vector<std::shared_ptr<FakeShow>> shows;
  std::shared_ptr<FakeDeck> active;
  int32_t nextShowWindow = 0;  // of the show that Run starts
  AutomationRef object;

  std::shared_ptr<FakeDeck> addDeck(std::u16string path) {
    decks.push_back(std::make_shared<FakeDeck>(FakeDeck{std::move(path)}));
    return active = decks.back();
  }
  std::shared_ptr<FakeShow> addShow(std::shared_ptr<FakeDeck> deck, int32_t window,
                                    int32_t slide = 1) {
    shows.push_back(std::make_shared<FakeShow>(FakeShow{std::move(deck), slide, window}));
    return shows.back();
  }
};

class AutomationFake : public Automation {
 public:
  using Arguments = std::vector<AutomationValue>;
  struct Answer {
    AutomationResult result = kAutomationOk;
    AutomationValue value;
  };

  /// The log may be shared with other fakes to check the order of calls across them.
  explicit AutomationFake(std::vector<std::string>& sharedLog) : log(sharedLog) {}

  /// "running PowerPoint.Application", "get shows.Count", "method view.GotoSlide 1",
  /// "both presentations.Item 2"
  std::vector<std::string>& log;
  std::map<std::string, Answer> answers;  // "view.Next": overrides what it returns
  /// Runs during each call, with its log entry: simulates what can happen while a real call waits,
  /// such as commands, a tick or the end of the program.
  std::function<void(const std::string& entry)> beforeCall;

  std::shared_ptr<FakeApplication> add(std::u16string progId) {
    auto application = std::make_shared<FakeApplication>();
    application->progId = std::move(progId);
    application->object = makeApplication(application);
    applications.push_back(application);
    return application;
  }
  void fail(const std::string& member, AutomationResult result = kAutomationFailed) {
    answers[member] = {result, {}};
  }

  AutomationRef running(std::u16string_view progId, ProgramWindows& /*programs*/) override {
    note("running " + utf8From(progId));
    return find(progId, &FakeApplication::runs);
  }
  AutomationRef start(std::u16string_view progId) override {
    note("start " + utf8From(progId));
    return find(progId, &FakeApplication::startable);
  }
  AutomationResult call(AutomationRef object, std::u16string_view name, DispatchKind kind,
                        AutomationValue* result, const Arguments& arguments) override {
    assert(object && (!result || std::holds_alternative<std::monostate>(*result)));
    Answer answer = answerOf(object, name, kind, arguments);
    const bool isNumber = std::holds_alternative<int32_t>(answer.value);
    if (answer.result >= 0 && result && !isNumber) *result = std::move(answer.value);
    return answer.result;
  }
  bool readInteger(AutomationRef object, std::u16string_view name, int32_t& value) override {
    assert(object);
    Answer answer = answerOf(object, name, DispatchKind::Get, {});
    if (answer.result < 0 || std::holds_alternative<AutomationRef>(answer.value)) return false;
    if (std::holds_alternative<std::monostate>(answer.value)) answer.value = 0;
    const std::string digits = textOf(answer.value);
    int32_t number = 0;
    const auto [rest, failure] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (failure != std::errc() || rest != digits.data() + digits.size()) return false;
    value = number;
    return true;
  }

 private:
  using Owner = std::weak_ptr<FakeApplication>;  // weak: an application owns its own object
  using Handler = std::function<Answer(const std::string& member, const Arguments&)>;
  struct Object : AutomationObject {
    Object(std::string typeIn, Owner ownerIn, Handler handlerIn)
        : type(std::move(typeIn)), owner(std::move(ownerIn)), handler(std::move(handlerIn)) {}
    std::string type;
    Owner owner;
    Handler handler;
  };

  std::vector<std::shared_ptr<FakeApplication>> applications;

  void note(const std::string& entry) {
    log.push_back(entry);
    if (beforeCall) beforeCall(entry);
  }

  AutomationRef find(std::u16string_view progId, bool FakeApplication::*reachable) {
    for (const auto& application : applications) {
      if (application->progId == progId && (*application).*reachable) return application->object;
    }
    return nullptr;
  }

  static DispatchKind kindOf(const std::string& member) {
    if (member == "Item") return DispatchKind::MethodOrGet;
    for (const char* method : {"Open", "Close", "Run", "GotoSlide", "Next", "Previous", "Exit"}) {
      if (member == method) return DispatchKind::Method;
    }
    return DispatchKind::Get;
  }

  static std::string textOf(const AutomationValue& argument) {
    if (const int32_t* number = std::get_if<int32_t>(&argument)) return std::to_string(*number);
    return utf8From(std::get<std::u16string>(argument));
  }

  Answer answerOf(const AutomationRef& called, std::u16string_view wideName, DispatchKind kind,
                  const Arguments& arguments) {
    const auto& object = static_cast<const Object&>(*called);
    const std::string name = utf8From(wideName);
    const std::string member = object.type + "." + name;
    std::string entry = kind == DispatchKind::Get      ? "get "
                        : kind == DispatchKind::Method ? "method "
                                                       : "both ";
    entry.append(member);
    for (const AutomationValue& argument : arguments) entry.append(" ").append(textOf(argument));
    note(entry);
    const auto owner = object.owner.lock();
    if (!owner || owner->dead) return {kFakeServerGone, {}};
    if (const auto answer = answers.find(member); answer != answers.end()) return answer->second;
    if (kind != kindOf(name)) return {kFakeWrongKind, {}};
    return object.handler(name, arguments);
  }

  static AutomationRef make(std::string type, const Owner& owner, Handler handler) {
    return std::make_shared<Object>(std::move(type), owner, std::move(handler));
  }

  template <typename Element>
  static AutomationRef makeCollection(
      const std::string& type, const std::shared_ptr<FakeApplication>& owner,
      std::vector<std::shared_ptr<Element>> FakeApplication::*list,
      AutomationRef (*makeElement)(const std::shared_ptr<FakeApplication>&,
                                   const std::shared_ptr<Element>&)) {
    return make(type, owner, [=](const std::string& member, const Arguments& arguments) -> Answer {
      auto& elements = (*owner).*list;
      if (member == "Count") return {0, static_cast<int32_t>(elements.size())};
      if (member == "Item") {
        const int32_t index = std::get<int32_t>(arguments.at(0));
        if (index < 1 || static_cast<size_t>(index) > elements.size())
          return {kAutomationFailed, {}};
        return {0, makeElement(owner, elements[static_cast<size_t>(index) - 1])};
      }
      if constexpr (std::is_same_v<Element, FakeDeck>) {
        if (member == "Open") {
          owner->addDeck(std::get<std::u16string>(arguments.at(0)));
          return {0, makeElement(owner, elements.back())};
        }
      }
      return {kFakeUnknownName, {}};
    });
  }

  static AutomationRef makeApplication(const std::shared_ptr<FakeApplication>& application) {
    return make("application", application,
                [weak = Owner(application)](const std::string& member, const Arguments&) -> Answer {
                  const auto owner = weak.lock();
                  if (member == "Name") return {0, owner->progId};
                  if (member == "Presentations") {
                    return {0, makeCollection("presentations", owner, &FakeApplication::decks,
                                              &AutomationFake::makeDeck)};
                  }
                  if (member == "SlideShowWindows") {
                    return {0, makeCollection("shows", owner, &FakeApplication::shows,
                                              &AutomationFake::makeShow)};
                  }
                  if (!owner->active) return {kAutomationFailed, {}};
                  if (member == "ActivePresentation") return {0, makeDeck(owner, owner->active)};
                  if (member == "ActiveWindow" && owner->active->editedSlide) {
                    return {0, makeDocumentWindow(owner, owner->active)};
                  }
                  return {kFakeUnknownName, {}};
                });
  }

  static AutomationRef makeDeck(const std::shared_ptr<FakeApplication>& owner,
                                const std::shared_ptr<FakeDeck>& deck) {
    return make("presentation", owner, [=](const std::string& member, const Arguments&) -> Answer {
      if (member == "FullName") return {0, deck->path};
      if (member == "Windows") return {0, makeDocumentWindows(owner, deck)};
      if (member == "SlideShowSettings") return {0, makeSettings(owner, deck)};
      if (member == "Close") {
        std::erase(owner->decks, deck);
        std::erase_if(owner->shows, [&](const auto& show) { return show->deck == deck; });
        if (owner->active == deck) owner->active = nullptr;
        return {};
      }
      return {kFakeUnknownName, {}};
    });
  }

  static AutomationRef makeDocumentWindows(const std::shared_ptr<FakeApplication>& owner,
                                           const std::shared_ptr<FakeDeck>& deck) {
    return make(
        "windows", owner, [=](const std::string& member, const Arguments& arguments) -> Answer {
          if (member == "Count") return {0, deck->editedSlide ? 1 : 0};
          if (member == "Item" && deck->editedSlide && std::get<int32_t>(arguments.at(0)) == 1) {
            return {0, makeDocumentWindow(owner, deck)};
          }
          return {kFakeUnknownName, {}};
        });
  }

  static AutomationRef makeSettings(const std::shared_ptr<FakeApplication>& owner,
                                    const std::shared_ptr<FakeDeck>& deck) {
    return make("settings", owner, [=](const std::string& member, const Arguments&) -> Answer {
      if (member != "Run") return {kFakeUnknownName, {}};
      return {0, makeShow(owner, owner->addShow(deck, owner->nextShowWindow))};
    });
  }

  static AutomationRef makeShow(const std::shared_ptr<FakeApplication>& owner,
                                const std::shared_ptr<FakeShow>& show) {
    return make("show", owner, [=](const std::string& member, const Arguments&) -> Answer {
      if (member == "HWND") return {0, show->window};
      if (member == "Presentation") return {0, makeDeck(owner, show->deck)};
      if (member == "View") return {0, makeShowView(owner, show)};
      return {kFakeUnknownName, {}};
    });
  }

  static AutomationRef makeShowView(const std::shared_ptr<FakeApplication>& owner,
                                    const std::shared_ptr<FakeShow>& show) {
    return make("view", owner,
                [=](const std::string& member, const Arguments& arguments) -> Answer {
                  if (member == "Slide") return {0, makeSlide("slide", owner, show->slide)};
                  if (member == "GotoSlide")
                    return show->slide = std::get<int32_t>(arguments.at(0)), Answer{};
                  if (member == "Next") return ++show->slide, Answer{};
                  if (member == "Previous") return --show->slide, Answer{};
                  if (member == "Exit") return std::erase(owner->shows, show), Answer{};
                  return {kFakeUnknownName, {}};
                });
  }

  static AutomationRef makeDocumentWindow(const std::shared_ptr<FakeApplication>& owner,
                                          const std::shared_ptr<FakeDeck>& deck) {
    return make("window", owner, [=](const std::string& member, const Arguments&) -> Answer {
      if (member != "View") return {kFakeUnknownName, {}};
      return {0, make("editView", owner, [=](const std::string& name, const Arguments&) -> Answer {
                if (name != "Slide") return {kFakeUnknownName, {}};
                return {0, makeSlide("editSlide", owner, *deck->editedSlide)};
              })};
    });
  }

  static AutomationRef makeSlide(const std::string& type,
                                 const std::shared_ptr<FakeApplication>& owner, int32_t number) {
    return make(type, owner, [=](const std::string& member, const Arguments&) -> Answer {
      if (member == "SlideIndex") return {0, number};
      return {kFakeUnknownName, {}};
    });
  }
};

}  // namespace mrl

// The object model that the stand-in offers to automation: which members there are and what they
// do.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace mrl::standin {

struct StandIn;

enum class ObjectKind {
  Application,
  Presentations,
  SlideShowWindows,
  DocumentWindows,
  Presentation,
  SlideShowSettings,
  SlideShowWindow,
  SlideShowView,
  DocumentWindow,
  DocumentView,
  Slide,
};

/// Names one object of the model without holding on to it.
struct ObjectRef {
  ObjectKind kind = ObjectKind::Application;
  int id = 0;     // of the deck or the show
  int slide = 0;  // of a Slide only: its number at the time it was asked for
};

using Value = std::variant<std::monostate, int, std::wstring, ObjectRef>;
using Arguments = std::vector<Value>;

/// The bits of a dispatch call.
inline constexpr uint16_t kMethod = 1;
inline constexpr uint16_t kGet = 2;
inline constexpr uint16_t kMethodOrGet = kMethod | kGet;

struct Member {
  ObjectKind object;
  const wchar_t* name;
  uint16_t flags;            // a call must ask for one of these at least
  const wchar_t* arguments;  // one letter each: i is an integer, s a text
  /// None when the call fails: the object is gone or the value is out of range.
  std::optional<Value> (*handler)(StandIn&, const ObjectRef& self, const Arguments&);
};

std::span<const Member> members();
const wchar_t* objectName(ObjectKind kind);

}  // namespace mrl::standin

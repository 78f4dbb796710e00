// The stand-in's object model: its members and their handlers.
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

/// Identifies one object of the model without owning it.
struct ObjectRef {
  ObjectKind kind = ObjectKind::Application;
  int id = 0;     // of the deck or the show
  int slide = 0;  // of a Slide only: its number when it was requested
};

using Value = std::variant<std::monostate, int, std::wstring, ObjectRef>;
using Arguments = std::vector<Value>;

/// The flags of a dispatch call.
inline constexpr uint16_t kMethod = 1;
inline constexpr uint16_t kGet = 2;
inline constexpr uint16_t kMethodOrGet = kMethod | kGet;

struct Member {
  ObjectKind object;
  const wchar_t* name;
  uint16_t flags;            // a call must have at least one of these
  const wchar_t* arguments;  // one letter each: i integer, s text
  /// std::nullopt if the call fails: the object is gone or a value is out of range.
  std::optional<Value> (*handler)(StandIn&, const ObjectRef& self, const Arguments&);
};

std::span<const Member> members();
const wchar_t* objectName(ObjectKind kind);

}  // namespace mrl::standin

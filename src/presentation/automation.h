// Interface for late-bound automation of another program (calls by member name).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "presentation/program_windows.h"

namespace mrl {

/// An object that lives in another program. Holding it keeps one reference.
class AutomationObject {
 public:
  virtual ~AutomationObject() = default;
};
using AutomationRef = std::shared_ptr<AutomationObject>;  // null: no object

/// Empty, an integer, a text or an object: the only types the object model needs.
using AutomationValue = std::variant<std::monostate, int32_t, std::u16string, AutomationRef>;

/// Result code of a call; negative means failure.
using AutomationResult = int32_t;
inline constexpr AutomationResult kAutomationOk = 0;
inline constexpr AutomationResult kAutomationFailed = static_cast<int32_t>(0x80004005);
inline constexpr AutomationResult kAutomationNullObject = static_cast<int32_t>(0x80004003);

/// The dispatch flags of a call.
enum class DispatchKind : uint16_t { Method = 1, Get = 2, MethodOrGet = 3 };

/// UI thread only. Every call goes to another process and may block indefinitely. Meanwhile
/// messages sent to our own windows are handled, so state may change during a call: copy what you
/// need beforehand unless you want the changed values.
class Automation {
 public:
  virtual ~Automation() = default;
  /// The running application of a ProgID; null if it is not registered or not running. `programs`
  /// is shared by all calls of one search.
  [[nodiscard]] virtual AutomationRef running(std::u16string_view progId,
                                              ProgramWindows& programs) = 0;
  /// Starts the application of a ProgID; null on failure.
  [[nodiscard]] virtual AutomationRef start(std::u16string_view progId) = 0;

  /// Calls one member by name. `arguments` are integers and texts in natural order. `result` may be
  /// null if not needed; it is set on success only, and stays empty unless a text or an object is
  /// returned. `object` is passed by value because the caller's reference may be released during
  /// the call. REQUIRES: `object` is not null and `result` is empty.
  virtual AutomationResult call(AutomationRef object, std::u16string_view name, DispatchKind kind,
                                AutomationValue* result,
                                const std::vector<AutomationValue>& arguments) = 0;
  /// Reads a property as an integer. Accepts whatever the system can convert: a fraction, a text of
  /// digits, an empty value (0). On failure returns false and leaves `value` unchanged. REQUIRES:
  /// `object` is not null.
  [[nodiscard]] virtual bool readInteger(AutomationRef object, std::u16string_view name,
                                         int32_t& value) = 0;
};

}  // namespace mrl

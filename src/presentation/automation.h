// Late-bound automation of another program, as the logic sees it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace mrl {

/// An object that lives in another program. Holding it keeps one reference.
class AutomationObject {
 public:
  virtual ~AutomationObject() = default;
};
using AutomationRef = std::shared_ptr<AutomationObject>;  // null is "none"

/// Empty, an integer, a text or an object: all that the object model deals in.
using AutomationValue = std::variant<std::monostate, int32_t, std::u16string, AutomationRef>;

/// What a call says of itself; negative is failure.
using AutomationResult = int32_t;
inline constexpr AutomationResult kAutomationOk = 0;
inline constexpr AutomationResult kAutomationFailed = static_cast<int32_t>(0x80004005);
inline constexpr AutomationResult kAutomationNullObject = static_cast<int32_t>(0x80004003);

/// Which kinds of dispatch a call asks for.
enum class DispatchKind : uint16_t { Method = 1, Get = 2, MethodOrGet = 3 };

/// UI thread only. Everything here goes into another process, may block for as long as that process
/// likes, and may let other work in meanwhile: messages that are sent to the program's windows are
/// handled. What a caller reads after a call it must have copied before, unless it wants the news.
class Automation {
 public:
  virtual ~Automation() = default;
  /// The running application of a ProgID, null when none is registered or none runs.
  [[nodiscard]] virtual AutomationRef running(std::u16string_view progId) = 0;
  /// Starts the application of a ProgID; null when that fails.
  [[nodiscard]] virtual AutomationRef start(std::u16string_view progId) = 0;

  /// One call by name. `arguments` are integers and texts in natural order. `result` may be null
  /// when nobody wants it; it is filled on success only, and stays empty when neither a text nor an
  /// object came back. `object` is the call's own, since the work that is let in may give up the
  /// caller's. REQUIRES: `object` is not null and `result` is empty.
  virtual AutomationResult call(AutomationRef object, std::u16string_view name, DispatchKind kind,
                                AutomationValue* result,
                                const std::vector<AutomationValue>& arguments) = 0;
  /// Gets a property as an integer. Whatever the system can turn into one counts: a fraction, a
  /// text of digits, nothing at all (0). On failure returns false and leaves `value` as it was.
  /// REQUIRES: `object` is not null.
  [[nodiscard]] virtual bool readInteger(AutomationRef object, std::u16string_view name,
                                         int32_t& value) = 0;
};

}  // namespace mrl

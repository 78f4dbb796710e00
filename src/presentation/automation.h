// Late-bound automation of another program, as the logic sees it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
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

/// UI thread only. Calls go into another process and may block for as long as that process likes.
class Automation {
 public:
  virtual ~Automation() = default;
  /// The running application of a ProgID, null when none is registered or none runs.
  [[nodiscard]] virtual AutomationRef running(const std::u16string& progId) = 0;
  /// Starts the application of a ProgID; null when that fails.
  [[nodiscard]] virtual AutomationRef start(const std::u16string& progId) = 0;
  /// One call by name. `arguments` stand in natural order. `result` may be null when nobody wants
  /// it. REQUIRES: `object` is not null.
  virtual AutomationResult call(const AutomationRef& object, const std::u16string& name,
                                DispatchKind kind, AutomationValue* result,
                                const std::vector<AutomationValue>& arguments) = 0;
};

}  // namespace mrl

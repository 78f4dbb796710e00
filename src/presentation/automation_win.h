// Automation through COM.
#pragma once

#include "presentation/automation.h"

namespace mrl {

/// Finds a running application in the system's table of running objects, or through its windows if
/// it is not listed there. REQUIRES: the calling thread is in a single-threaded apartment while
/// this or any object from it lives, and every object passed in came from it.
class AutomationWin : public Automation {
 public:
  AutomationRef running(std::u16string_view progId, ProgramWindows& programs) override;
  AutomationRef start(std::u16string_view progId) override;
  AutomationResult call(AutomationRef object, std::u16string_view name, DispatchKind kind,
                        AutomationValue* result,
                        const std::vector<AutomationValue>& arguments) override;
  bool readInteger(AutomationRef object, std::u16string_view name, int32_t& value) override;
};

}  // namespace mrl

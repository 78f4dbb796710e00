// Automation through COM.
#pragma once

#include "presentation/automation.h"

namespace mrl {

/// A running application is looked up in the system's list of running objects, and where it isn't
/// listed for us, through its windows.
/// REQUIRES: the calling thread is in a single-threaded apartment as long as this and any object
/// from it live, and every object passed in came from it.
class AutomationWin : public Automation {
 public:
  AutomationRef running(std::u16string_view progId) override;
  AutomationRef start(std::u16string_view progId) override;
  AutomationResult call(AutomationRef object, std::u16string_view name, DispatchKind kind,
                        AutomationValue* result,
                        const std::vector<AutomationValue>& arguments) override;
  bool readInteger(AutomationRef object, std::u16string_view name, int32_t& value) override;
};

}  // namespace mrl

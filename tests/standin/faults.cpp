// Faults on command.
#include "standin/faults.h"

namespace mrl::standin {

void FaultList::add(const std::wstring& member, int count) { counts[member] = count; }

bool FaultList::take(const std::wstring& object, const std::wstring& member) {
  auto found = counts.find(object + L"." + member);
  if (found == counts.end()) found = counts.find(member);
  if (found == counts.end()) return false;
  if (found->second > 0 && --found->second == 0) counts.erase(found);
  return true;
}

}  // namespace mrl::standin

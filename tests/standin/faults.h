// Faults set by a test: which member misbehaves, how, and how often.
#pragma once

#include <map>
#include <string>

namespace mrl::standin {

/// Members are given as "Member" (of any object) or "Object.Member".
class FaultList {
 public:
  /// The next `count` calls misbehave; 0 means every call until removed.
  void add(const std::wstring& member, int count);
  /// The member works normally again.
  void remove(const std::wstring& member) { counts.erase(member); }
  /// True if this call is to misbehave; consumes one of the counted calls.
  bool take(const std::wstring& object, const std::wstring& member);

 private:
  std::map<std::wstring, int> counts;
};

struct Faults {
  FaultList failing;   // the call fails with error details
  FaultList rejected;  // the call is rejected without details, as by a busy program
  FaultList nonsense;  // the call returns a value of a wrong type
  FaultList deadly;    // the process ends inside the call
  int hangMs = 0;      // the next call takes this long
  bool emptyFullName = false;
  bool cloudFullName = false;  // FullName is a URL, as in a cloud folder
  bool hwndZero = false;
  bool endScreen = false;  // a black screen follows the last slide
};

}  // namespace mrl::standin

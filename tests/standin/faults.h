// Faults that a test has asked for: which member misbehaves, how, and how often.
#pragma once

#include <map>
#include <string>

namespace mrl::standin {

/// Members are named "Member", for every object that has it, or "Object.Member".
class FaultList {
 public:
  /// `count` calls misbehave; 0 means every call until the list is cleared.
  void add(const std::wstring& member, int count);
  /// The member behaves again.
  void remove(const std::wstring& member) { counts.erase(member); }
  /// Whether this call misbehaves; uses up one of the counted calls.
  bool take(const std::wstring& object, const std::wstring& member);

 private:
  std::map<std::wstring, int> counts;
};

struct Faults {
  FaultList failing;   // the call fails and explains itself
  FaultList rejected;  // the call isn't taken, as by a program that is busy, and explains nothing
  FaultList nonsense;  // the call gives a value of a wrong type
  FaultList deadly;    // the process ends inside the call
  int hangMs = 0;      // the next call takes this long
  bool emptyFullName = false;
  bool cloudFullName = false;  // files are named by an address, as in a folder kept in the cloud
  bool hwndZero = false;
  bool endScreen = false;  // after the last slide comes a black one that is none
};

}  // namespace mrl::standin

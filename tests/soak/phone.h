// A remote control of a real program, as a phone in the room is: one connection for each request.
// Windows only.
#pragma once

#include <cstdint>
#include <string>

#include "http/raw_client_win.h"
#include "settings/settings.h"

namespace mrl {

/// Any thread. REQUIRES: a Winsock object lives as long.
class Phone {
 public:
  explicit Phone(int32_t ofPort) : port(ofPort) {}

  /// The whole response; empty if nobody answers.
  std::string ask(const std::string& request) const;
  /// The JSON of the state; empty if it was refused or nobody answers.
  std::string state() const;
  /// False if the command was refused or nobody answers.
  bool command(const std::string& words) const;
  /// Changes the settings by their form; false if it was refused or nobody answers.
  bool save(const Settings& from, const Settings& to) const;

 private:
  int32_t port;
};

/// The request that changes the settings from `from` to `to`, as far as the form has them.
std::string formRequest(const Settings& from, Settings to);

/// What the clock shows by that state, in UTF-8; empty if it says nothing.
std::string timeIn(const std::string& state);

}  // namespace mrl

// One request on its way from the listener's thread to the UI thread and back. Both threads share
// ownership, so a late answer still has valid memory to be written to.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace mrl {

/// Set once, by the UI thread; the listener waits for it. Everything written before set() is
/// visible after a successful wait.
class DoneEvent {
 public:
  virtual ~DoneEvent() = default;
  virtual void set() = 0;
  /// False on time-out, or if the event could not be created.
  [[nodiscard]] virtual bool wait(uint32_t limitMs) = 0;
};

constexpr uint64_t kRequestLifeMs = 2500;  // from its creation; not carried out later
constexpr uint32_t kAnswerLimitMs = 2000;  // how long the listener waits for the answer

struct RemoteRequest {
  // Written by the listener before it posts the request; constant afterwards.
  std::string command;   // the path after "/api/"; "controls-save" for a form
  std::string argument;  // the value of "seconds=" or "id=", or empty
  std::string body;      // of a form, or empty
  uint64_t generation = 0;
  uint64_t deadlineMs = 0;
  // Written by the UI thread before `done` is set; read by the listener only after.
  std::string response;  // JSON
  int32_t status = 200;

  std::unique_ptr<DoneEvent> done;
};

}  // namespace mrl

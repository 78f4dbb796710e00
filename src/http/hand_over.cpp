#include "http/hand_over.h"

namespace mrl {
namespace {

constexpr char kUnavailable[] = "UI unavailable";
constexpr char kMayBePending[] =
    "UI unavailable; command may be pending. Refresh state before retry.";

}  // namespace

std::shared_ptr<RemoteRequest> makeRequest(const RemoteServer& server,
                                           const HandOverInterfaces& interfaces) {
  auto request = std::make_shared<RemoteRequest>();
  request->generation = server.generation;
  request->deadlineMs = interfaces.clock.nowMs() + kRequestLifeMs;
  request->done = interfaces.requests.makeEvent();
  return request;
}

Answer handOver(const RemoteServer& server, const HandOverInterfaces& interfaces,
                const std::shared_ptr<RemoteRequest>& request) {
  if (!interfaces.requests.post(server.targetWindow, request))
    return {503, kUnavailable, kPlainText};
  // After a time-out neither answer field may be read: the UI thread may still be writing them.
  if (!request->done->wait(kAnswerLimitMs)) return {503, kMayBePending, kPlainText};
  return {request->status, request->response, kJson};
}

}  // namespace mrl

#include "remote/remote_requests.h"

#include "http/json_text.h"
#include "remote/controls.h"
#include "remote/remote_commands.h"
#include "remote/state.h"

namespace mrl {
namespace {

constexpr char16_t kServiceClosed[] = u"遥控服务已关闭，请重新连接";
constexpr char16_t kTooLate[] = u"操作已超时，请刷新后重试";
constexpr int32_t kStatusConflict = 409;
constexpr int32_t kStatusUnavailable = 503;

void refuse(RemoteRequest& request, int32_t status, std::u16string_view reason) {
  request.status = status;
  request.response = "{\"error\":" + jsonString(reason) + "}";
}

/// Returns false and fills `error` if the request is refused.
bool runRequest(App& app, RemoteRequest& request, std::u16string& error) {
  if (request.command == "controls" || request.command == "controls-save") {
    const bool saves = request.command == "controls-save";
    if (saves && !applyControlsForm(app, request.body, error)) return false;
    request.response = controlsSnapshotJson(app);
    return true;
  }
  if (!runRemoteCommand(app, request.command, request.argument, error)) return false;
  request.response = buildStateJson(app);
  return true;
}

void answerRequest(App& app, RemoteRequest& request) {
  const RemoteServer& server = app.remote;
  if (!server.running || request.generation != server.generation) {
    return refuse(request, kStatusUnavailable, kServiceClosed);
  }
  if (app.platform.clock.nowMs() > request.deadlineMs) {
    return refuse(request, kStatusUnavailable, kTooLate);
  }
  std::u16string error;
  if (!runRequest(app, request, error)) refuse(request, kStatusConflict, error);
}

}  // namespace

void onRemoteRequest(App& app, RemoteRequest& request) {
  answerRequest(app, request);
  request.done->set();
}

}  // namespace mrl

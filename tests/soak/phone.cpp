#include "soak/phone.h"

#include <variant>

#include "remote/controls.h"

namespace mrl {

std::string Phone::ask(const std::string& request) const {
  RawClient client(port);
  if (!client.isConnected()) return {};
  client.send(request);
  return client.readAll();
}

std::string Phone::state() const {
  const std::string response = ask(get("/api/state"));
  return statusOf(response) == 200 ? bodyOf(response) : std::string();
}

bool Phone::command(const std::string& words) const {
  return statusOf(ask(post("/api/" + words))) == 200;
}

bool Phone::save(const Settings& from, const Settings& to) const {
  return statusOf(ask(formRequest(from, to))) == 200;
}

std::string formRequest(const Settings& from, Settings to) {
  std::string form = "revision=" + controlsRevision(from);
  for (const ControlField& field : controlFields(to)) {
    form += '&' + field.name + '=';
    form += std::visit([](const auto* value) { return std::to_string(*value); }, field.target);
  }
  return post("/api/controls", "Content-Length: " + std::to_string(form.size()) + "\r\n", form);
}

std::string timeIn(const std::string& state) {
  constexpr std::string_view kBefore = "{\"time\":\"";
  if (!state.starts_with(kBefore)) return {};
  return state.substr(kBefore.size(), state.find('"', kBefore.size()) - kBefore.size());
}

}  // namespace mrl

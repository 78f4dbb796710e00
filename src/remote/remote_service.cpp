#include "remote/remote_service.h"

#include "base/text.h"
#include "core/test_files.h"
#include "remote/addresses.h"
#include "remote/firewall.h"

namespace mrl {
namespace {

bool ensureFirewallRule(App& app, bool interactive, std::u16string& error) {
  FirewallRules& rules = app.platform.firewall;
  const auto port = static_cast<int32_t>(app.settings.remotePort);
  const WindowHandle owner = app.platform.settingsView.isOpen() ? app.platform.settingsView.handle()
                                                                : app.platform.clockWindow.handle();
  return ensureFirewallAccess(
      interactive, error,
      [&](std::u16string& message) { return checkFirewallRule(rules, port, message); },
      [&](std::u16string& message) { return authorizeFirewallRule(rules, owner, port, message); });
}

bool start(App& app, bool interactive, std::u16string& error) {
  std::vector<uint32_t> addresses;
  if (!app.testMode.isOn) {
    if (!discoverAddresses(app.platform.network, addresses, error)) return false;
    if (!ensureFirewallRule(app, interactive, error)) return false;
  }
  return startServer(app, addresses, error);
}

}  // namespace

bool startServer(App& app, const std::vector<uint32_t>& addresses, std::u16string& error) {
  const Platform& platform = app.platform;
  return startServer(app.remote,
                     {.sockets = platform.sockets,
                      .host = platform.serviceHost,
                      .clock = platform.clock,
                      .requests = platform.requests,
                      .port = static_cast<int32_t>(app.settings.remotePort),
                      .addresses = addresses,
                      .target = platform.clockWindow.handle()},
                     error);
}

bool startRemote(App& app, bool interactive) {
  if (app.remote.running) return true;
  std::u16string error;
  if (!start(app, interactive, error)) {
    setStatus(app, error);
    return false;
  }
  if (app.testMode.isOn) writeTestFile(app, u"remote.txt", app.remote.pairingKey);
  return true;
}

void stopRemote(App& app) { stopServer(app.remote); }

}  // namespace mrl

#include "remote/remote_service.h"

#include "base/text.h"
#include "core/test_files.h"
#include "remote/addresses.h"
#include "remote/firewall.h"
#include "settings_window/remote_page.h"
#include "settings_window/settings_window.h"

namespace mrl {
namespace {

constexpr char16_t kStartFirst[] = u"请先点击“启动遥控服务”并完成网络授权。";
constexpr char16_t kAddressShown[] = u"当前地址已更新；网络发生变化时请关闭并重新启动服务。";
constexpr char16_t kNotRunning[] = u"遥控服务未启动，请在网络页恢复服务。";
constexpr int kRemotePage = 3;

bool passFirewall(App& app, bool interactive, std::u16string& error) {
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
  if (!app.testMode) {
    if (!discoverAddresses(app.platform.network, addresses, error)) return false;
    if (!passFirewall(app, interactive, error)) return false;
  }
  return startServer(app, addresses, error);
}

}  // namespace

bool startRemote(App& app, bool interactive) {
  if (app.remote.running) return true;
  std::u16string error;
  if (!start(app, interactive, error)) {
    setStatus(app, error);
    return false;
  }
  if (app.testMode) writeTestFile(app, u"remote.txt", app.remote.pairingKey);
  return true;
}

void stopRemote(App& app) { stopServer(app.remote); }

void openRemotePage(App& app) {
  if (!app.remote.running) {
    openSettingsWindow(app);
    selectPage(app, kRemotePage);
    setStatus(app, kStartFirst);
    refreshRemotePage(app);
  } else if (app.testMode) {
    writeTestFile(app, u"remote-opened.txt", "opened");
  } else {
    // A browser that can't be opened tells so itself.
    (void)app.platform.shell.open(remoteUrlList({}, u"", app.remote.port), u"");
  }
}

void refreshRemoteAddress(App& app) {
  refreshRemotePage(app);
  setStatus(app, app.remote.running ? kAddressShown : kNotRunning);
}

}  // namespace mrl

#include "settings_window/network_check.h"

#include "remote/addresses.h"
#include "remote/firewall.h"

namespace mrl {
namespace {

constexpr char16_t kTitle[] = u"网络权限检查";
constexpr char16_t kTestMode[] = u"测试模式仅使用本机连接，不检查系统网络权限。";
constexpr char16_t kRulesFound[] = u"发现需要检查的防火墙规则；请查看系统防火墙控制台。";
constexpr char16_t kAskConsole[] =
    u"\n\n程序不会自动修改或删除这些规则。是否打开高级防火墙控制台，由你检查规则来源和范围？";
constexpr char16_t kConsole[] = u"\\wf.msc";
constexpr char16_t kNoConsole[] =
    u"无法打开防火墙控制台，请在 Windows 中搜索“高级安全 Windows Defender 防火墙”。";
constexpr char16_t kChecked[] = u"防火墙规则已核对。请启动遥控服务并在另一台设备上测试连接。";
constexpr char16_t kCheckedBox[] =
    u"已核对程序、端口和本地子网规则，适用于公用、专用及域网络。"
    u"请启动遥控服务，并使用另一台设备测试连接。其他安全软件或系统策略仍可能影响连接。";

/// Reports in the status line and in a modal message box.
void showMessage(App& app, const std::u16string& text, DialogIcon icon) {
  setStatus(app, text);
  app.platform.settingsDialogs.inform(text, kTitle, icon);
}

/// By its full path, with the system's folder as its working folder: it inherits this program's
/// administrator rights, and a search would also look in the current folder, maybe the downloads.
bool openConsole(App& app) {
  const std::u16string folder = app.platform.firewall.systemFolder();
  return !folder.empty() && app.platform.shell.open(folder + kConsole, folder);
}

void offerConsole(App& app, const std::u16string& found) {
  setStatus(app, kRulesFound);
  SettingsDialogs& dialogs = app.platform.settingsDialogs;
  if (!dialogs.askYesNo(found + kAskConsole, kTitle, DialogIcon::Warning)) return;
  if (!openConsole(app)) setStatus(app, kNoConsole);
}

bool hasNetwork(App& app) {
  std::vector<uint32_t> addresses;
  std::u16string error;
  if (discoverAddresses(app.platform.network, addresses, error)) return true;
  showMessage(app, error, DialogIcon::Information);
  return false;
}

bool authorize(App& app, int32_t port) {
  std::u16string error;
  const WindowHandle owner = app.platform.settingsView.handle();
  if (authorizeFirewallRule(app.platform.firewall, owner, port, error)) return true;
  showMessage(app, error, DialogIcon::Information);
  return false;
}

}  // namespace

void checkAndRepairNetwork(App& app) {
  if (app.testMode.isOn) return setStatus(app, kTestMode);
  const auto port = static_cast<int32_t>(app.settings.remotePort);
  std::u16string text;
  FirewallRuleState state = checkFirewallRule(app.platform.firewall, port, text);
  if (state == FirewallRuleState::ScopeMismatch || state == FirewallRuleState::Blocked) {
    return offerConsole(app, text);
  }
  if (state != FirewallRuleState::Failed && !hasNetwork(app)) return;
  if (state == FirewallRuleState::Missing) {
    if (!authorize(app, port)) return;
    state = checkFirewallRule(app.platform.firewall, port, text);
  }
  if (state != FirewallRuleState::Authorized) return showMessage(app, text, DialogIcon::Warning);
  setStatus(app, kChecked);
  app.platform.settingsDialogs.inform(kCheckedBox, kTitle, DialogIcon::Information);
}

}  // namespace mrl

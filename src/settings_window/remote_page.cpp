#include "settings_window/remote_page.h"

#include "remote/addresses.h"
#include "remote/remote_service.h"
#include "settings_window/auto_apply.h"
#include "settings_window/control_ids.h"
#include "settings_window/form_sync.h"
#include "settings_window/qr_code.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

constexpr char16_t kNotRunning[] = u"遥控服务未启动，请启动或恢复服务。";
constexpr char16_t kStopText[] = u"关闭遥控服务";
constexpr char16_t kStartText[] = u"启动遥控服务";
constexpr char16_t kQrFailed[] = u"二维码生成失败，请复制地址连接。";
constexpr char16_t kStopped[] = u"遥控服务已关闭，当前连接已断开。";
constexpr char16_t kStarted[] = u"遥控服务已启动；如无法连接请检查网络与防火墙规则。";
constexpr char16_t kCopied[] = u"遥控地址已复制。";

/// One address per line; empty while the service is stopped.
std::u16string addressLines(const App& app) {
  if (!app.remote.running) return {};
  return remoteUrlList(app.remote.addresses, u"", app.remote.port);
}

/// The best address, which is the first.
std::u16string firstLine(const std::u16string& lines) {
  return lines.substr(0, lines.find(u"\r\n"));
}

}  // namespace

void refreshRemotePage(App& app) {
  if (!app.form.isOpen) return;
  SettingsView& view = app.platform.settingsView;
  {
    const SuppressControls quiet(app);
    const std::u16string lines = addressLines(app);
    setTextIfChanged(app, kAddressBox, lines.empty() ? kNotRunning : lines);
    view.setMark(kServiceButton, Mark::Active, app.remote.running);
    view.setText(kServiceButton, app.remote.running ? kStopText : kStartText);
    view.invalidate(kServiceButton);
    showQrCode(app, firstLine(lines));
  }
  refreshEnableStates(app);
}

void showQrCode(App& app, const std::u16string& address) {
  app.form.qrMatrix.clear();
  if (!address.empty() && !encodeQrCode(address, app.form.qrMatrix)) setStatus(app, kQrFailed);
  app.platform.settingsView.invalidate(kQrCode);
}

void toggleRemote(App& app) {
  if (app.remote.running) {
    stopRemote(app);
    setStatus(app, kStopped);
  } else if (startRemote(app, true)) {
    setStatus(app, kStarted);
  }
  refreshRemotePage(app);
}

void copyRemoteAddress(App& app) {
  const std::u16string address = firstLine(addressLines(app));
  if (!address.empty() && app.platform.settingsDialogs.copyText(address)) setStatus(app, kCopied);
}

void applyPort(App& app) {
  queueEdit(app, kPortBox, 0);
  applyEdit(app, kPortBox);
}

}  // namespace mrl

#include "settings_window/remote_page.h"

#include "settings_window/settings_fixture.h"

namespace mrl {
namespace {

constexpr uint32_t kBest = 0x0A01A8C0;   // 192.168.1.10
constexpr uint32_t kOther = 0x0200000A;  // 10.0.0.2

class RemotePageTest : public SettingsFixture {
 protected:
  void serve() {
    app.remote.running = true;
    app.remote.addresses = {kBest, kOther};
    app.remote.port = 22222;
    refreshRemotePage(app);
  }
};

TEST_F(RemotePageTest, AStoppedServiceShowsNoAddressAndNoCode) {
  refreshRemotePage(app);
  EXPECT_EQ(view().text(kAddressBox), u"遥控服务未启动，请启动或恢复服务。");
  EXPECT_EQ(view().text(kServiceButton), u"启动遥控服务");
  EXPECT_FALSE(view().mark(kServiceButton, Mark::Active));
  EXPECT_TRUE(app.form.qrMatrix.empty());
  EXPECT_FALSE(isEnabled(kCopyAddressButton));
}

TEST_F(RemotePageTest, ARunningServiceShowsItsAddressesAndTheCodeOfTheFirst) {
  serve();
  EXPECT_EQ(view().text(kAddressBox), u"http://192.168.1.10:22222/\r\nhttp://10.0.0.2:22222/");
  EXPECT_EQ(view().text(kServiceButton), u"关闭遥控服务");
  EXPECT_TRUE(view().mark(kServiceButton, Mark::Active));
  QrMatrix first;
  ASSERT_TRUE(encodeQrCode(u"http://192.168.1.10:22222/", first));
  EXPECT_EQ(app.form.qrMatrix, first);
  EXPECT_TRUE(isEnabled(kCopyAddressButton));
  for (const int id : {221, 283}) EXPECT_EQ(std::ranges::count(view().invalidated, id) > 0, true);
}

TEST_F(RemotePageTest, ARefreshBooksNothing) {
  serve();
  EXPECT_TRUE(app.form.pendingEdits.empty());
  EXPECT_FALSE(app.form.controlsSuppressed);
}

TEST_F(RemotePageTest, ARefreshKeepsControlsSuppressedForWhoSetIt) {
  const SuppressControls quiet(app);
  refreshRemotePage(app);
  EXPECT_TRUE(app.form.controlsSuppressed);
}

TEST_F(RemotePageTest, TheCodeGoesWithTheService) {
  serve();
  view().click(kServiceButton);
  EXPECT_FALSE(app.remote.running);
  EXPECT_EQ(status(), u"遥控服务已关闭，当前连接已断开。");
  EXPECT_TRUE(app.form.qrMatrix.empty());
  EXPECT_EQ(view().text(kServiceButton), u"启动遥控服务");
}

TEST_F(RemotePageTest, AStartThatFailsHasTheLastWord) {
  view().click(kServiceButton);
  EXPECT_FALSE(app.remote.running);
  EXPECT_NE(status(), u"遥控服务已启动；如无法连接请检查网络与防火墙规则。");
  EXPECT_EQ(view().text(kServiceButton), u"启动遥控服务");
}

TEST_F(RemotePageTest, TheFirstAddressIsCopied) {
  serve();
  view().click(kCopyAddressButton);
  EXPECT_EQ(view().clipboard, u"http://192.168.1.10:22222/");
  EXPECT_EQ(status(), u"遥控地址已复制。");
}

TEST_F(RemotePageTest, AFailedCopySaysNothing) {
  serve();
  view().copyFails = true;
  view().click(kCopyAddressButton);
  EXPECT_EQ(status(), u"设置自动生效");
}

TEST_F(RemotePageTest, AStoppedServiceHasNothingToCopy) {
  view().click(kCopyAddressButton);
  EXPECT_EQ(view().clipboard, u"");
  EXPECT_EQ(status(), u"设置自动生效");
}

TEST_F(RemotePageTest, WithoutAWindowNothingIsRefreshed) {
  closeSettingsWindow(app);
  serve();
  EXPECT_TRUE(app.form.qrMatrix.empty());
}

}  // namespace
}  // namespace mrl

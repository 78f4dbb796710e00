// The settings page of the remote service as a user operates it: starting and stopping, the
// clipboard, the port.
#include <gtest/gtest.h>

#include "http/raw_client_win.h"
#include "windows/settings_hand.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SettingsServiceTest : public SettingsHand {
 protected:
  static constexpr wchar_t kStart[] = L"启动遥控服务";
  static constexpr wchar_t kStop[] = L"关闭遥控服务";
  static constexpr wchar_t kPortWaits[] = L"端口尚未应用；点击“应用端口”后生效。";

  void openOnItsPage(bool running) {
    port = static_cast<int32_t>(somePort());
    Settings settings;
    settings.remoteAutoStart = running;
    settings.remotePort = static_cast<uint32_t>(port);
    ASSERT_NO_FATAL_FAILURE(open(settings));
    turnTo(3);
    ASSERT_EQ(text(kServiceButton), running ? kStop : kStart);
  }
  std::string state() const {
    RawClient client(port);
    client.send(get("/api/state"));
    return client.readAll();
  }
  bool answers() const { return statusOf(state()) == 200; }
  std::wstring firstAddress() const {
    const std::wstring lines = text(kAddressBox);
    return lines.substr(0, lines.find(L"\r\n"));
  }

  const Winsock winsock;
  int32_t port = 0;
};

TEST_F(SettingsServiceTest, TheButtonStartsTheServiceAndStopsIt) {
  ASSERT_NO_FATAL_FAILURE(openOnItsPage(false));
  EXPECT_FALSE(RawClient(port).isConnected());
  EXPECT_EQ(text(kAddressBox), L"遥控服务未启动，请启动或恢复服务。");
  EXPECT_FALSE(isEnabled(kCopyAddressButton));
  press(kServiceButton);
  EXPECT_TRUE(says(L"遥控服务已启动；如无法连接请检查网络与防火墙规则。"));
  EXPECT_TRUE(answers());
  EXPECT_EQ(text(kServiceButton), kStop);
  EXPECT_TRUE(isMarked(kServiceButton, L"Marlune.Active"));
  EXPECT_TRUE(firstAddress().ends_with(L":" + std::to_wstring(port) + L"/")) << firstAddress();
  EXPECT_TRUE(isEnabled(kCopyAddressButton));
  press(kServiceButton);
  EXPECT_TRUE(says(L"遥控服务已关闭，当前连接已断开。"));
  EXPECT_FALSE(RawClient(port).isConnected());
  EXPECT_EQ(text(kServiceButton), kStart);
  EXPECT_FALSE(isMarked(kServiceButton, L"Marlune.Active"));
  EXPECT_FALSE(program.settings().remoteAutoStart) << "that is about the next start";
}

TEST_F(SettingsServiceTest, TheTickStartsTheServiceAtOnceAndAtTheNextStart) {
  ASSERT_NO_FATAL_FAILURE(openOnItsPage(false));
  press(kAutoStartCheck);
  EXPECT_TRUE(says(kApplied));
  EXPECT_TRUE(answers());
  EXPECT_EQ(text(kServiceButton), kStop);
  EXPECT_TRUE(saved(&Settings::remoteAutoStart, true));
  press(kAutoStartCheck);
  EXPECT_TRUE(saved(&Settings::remoteAutoStart, false));
  EXPECT_TRUE(answers()) << "a running service goes on";
}

TEST_F(SettingsServiceTest, TheFirstAddressGoesToTheClipboard) {
  ASSERT_NO_FATAL_FAILURE(openOnItsPage(true));
  ASSERT_TRUE(putOnClipboard(L"something else"));
  press(kCopyAddressButton);
  EXPECT_TRUE(says(L"遥控地址已复制。"));
  EXPECT_EQ(clipboardText(), firstAddress());
  EXPECT_TRUE(clipboardText().starts_with(L"http://"));
}

TEST_F(SettingsServiceTest, TheAddressReplacesAllThatWasOnTheClipboard) {
  ASSERT_NO_FATAL_FAILURE(openOnItsPage(true));
  ASSERT_TRUE(putOnClipboard(L"something else"));
  const UINT otherFormat = RegisterClipboardFormatW(L"Marlune.Test.Format");
  ASSERT_TRUE(waitUntil([] { return OpenClipboard(nullptr) != FALSE; }));
  SetClipboardData(otherFormat, GlobalAlloc(GMEM_MOVEABLE, 4));
  CloseClipboard();
  ASSERT_TRUE(IsClipboardFormatAvailable(otherFormat));
  press(kCopyAddressButton);
  ASSERT_TRUE(says(L"遥控地址已复制。"));
  EXPECT_FALSE(IsClipboardFormatAvailable(otherFormat));
}

TEST_F(SettingsServiceTest, APortThatIsTypedWaitsForItsButtonWhichStopsTheService) {
  ASSERT_NO_FATAL_FAILURE(openOnItsPage(true));
  const int32_t other = port + 1;
  retype(kPortBox, std::to_wstring(other));
  EXPECT_TRUE(says(kPortWaits));
  pressKeys(VK_RETURN);
  pressKeys('S', {VK_CONTROL});
  EXPECT_TRUE(answers());
  EXPECT_EQ(program.settings().remotePort, static_cast<uint32_t>(port));
  press(kApplyPortButton);
  EXPECT_TRUE(says(L"端口已更新，遥控服务已停止；请重新启动并授权。"));
  EXPECT_TRUE(saved(&Settings::remotePort, static_cast<uint32_t>(other)));
  EXPECT_FALSE(RawClient(port).isConnected());
  EXPECT_EQ(text(kServiceButton), kStart);
  port = other;
  press(kServiceButton);
  EXPECT_TRUE(reads(kServiceButton, kStop));
  EXPECT_TRUE(answers());
}

TEST_F(SettingsServiceTest, TheOldPortTypedAgainHasNotChanged) {
  ASSERT_NO_FATAL_FAILURE(openOnItsPage(false));
  retype(kPortBox, L"1024");
  EXPECT_TRUE(says(kPortWaits));
  retype(kPortBox, std::to_wstring(port));
  EXPECT_TRUE(says(L"端口未更改。"));
  press(kApplyPortButton);
  EXPECT_TRUE(says(kApplied));
}

TEST_F(SettingsServiceTest, WithoutTheServiceAPortIsJustSaved) {
  ASSERT_NO_FATAL_FAILURE(openOnItsPage(false));
  retype(kPortBox, L"65535");
  press(kApplyPortButton);
  EXPECT_TRUE(says(kApplied));
  EXPECT_TRUE(saved(&Settings::remotePort, 65535));
}

TEST_F(SettingsServiceTest, AWrongPortIsMarkedAndToldAndTheServiceGoesOn) {
  ASSERT_NO_FATAL_FAILURE(openOnItsPage(true));
  const std::wstring error = std::wstring(L"请输入有效数值（1024–65535）。") + kNotApplied;
  for (const wchar_t* wrong : {L"80", L"65536", L"4294967296", L"gar bage", L"\"22222\""}) {
    SCOPED_TRACE(testing::PrintToString(wrong));
    paste(kPortBox, wrong);
    ASSERT_TRUE(reads(kPortBox, wrong));
    ASSERT_TRUE(becomesRed(kPortBox, false));
    press(kApplyPortButton);
    EXPECT_TRUE(becomesRed(kPortBox));
    EXPECT_TRUE(says(error));
  }
  retype(kPortBox, L"");
  press(kApplyPortButton);
  EXPECT_TRUE(becomesRed(kPortBox));
  EXPECT_TRUE(reads(kPortBox, L"0"));
  EXPECT_EQ(program.settings().remotePort, static_cast<uint32_t>(port));
  EXPECT_TRUE(answers());
}

TEST_F(SettingsServiceTest, APortOfAnotherIsToldAndTheTickStaysSaved) {
  ASSERT_NO_FATAL_FAILURE(openOnItsPage(false));
  Program other;
  Settings settings;
  settings.remotePort = static_cast<uint32_t>(port);
  other.prepare(settings);
  ASSERT_TRUE(other.start());
  ASSERT_TRUE(answers());
  SetForegroundWindow(window());
  press(kAutoStartCheck);
  EXPECT_TRUE(saved(&Settings::remoteAutoStart, true));
  EXPECT_EQ(text(kServiceButton), kStart);
  const std::wstring busy =
      L"遥控端口 " + std::to_wstring(port) + L" 无法监听，请检查网络或更换端口。";
  EXPECT_TRUE(says(busy));
  press(kServiceButton);
  EXPECT_TRUE(says(busy));
  EXPECT_EQ(text(kServiceButton), kStart);
}

}  // namespace
}  // namespace mrl

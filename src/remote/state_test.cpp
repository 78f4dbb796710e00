#include "remote/state.h"

#include <gtest/gtest.h>

#include "core/app_fixture.h"
#include "core/expiry.h"
#include "presentation/catalogue.h"
#include "settings/path_rules.h"

namespace mrl {
namespace {

class StateTest : public AppFixture {
 protected:
  /// The text of the value of `key`.
  std::string valueOf(const std::string& key) {
    const std::string state = buildStateJson(app);
    const std::string start = '"' + key + "\":";
    const size_t from = state.find(start) + start.size();
    const size_t end = state.find(key == "files" ? "]}" : ",\"", from);
    return state.substr(from, end - from + (key == "files" ? 1 : 0));
  }
  void showFolder() {
    app.settings.pptFolder = u"C:\\talks";
    files().putFolder(u"C:\\talks");
  }
  void addFile(const std::u16string& name) { files().putFile(u"C:\\talks\\" + name, ""); }
};

TEST_F(StateTest, EveryKeyIsThereInItsOrderWithoutWhiteSpace) {
  start();
  EXPECT_EQ(buildStateJson(app),
            R"({"time":"15:00","running":false,"paused":false,"automatic":true,"down":true,)"
            R"("duration":900,"visible":true,"black":false,"showing":false,"slide":0,)"
            R"("provider":"","machineTime":"","files":[]})");
}

TEST_F(StateTest, ARunningShowIsToldWithItsSlideAndItsProvider) {
  start();
  startShow(kDeck, 7);
  waitForPoll();
  EXPECT_EQ(valueOf("showing"), "true");
  EXPECT_EQ(valueOf("slide"), "7");
  EXPECT_EQ(valueOf("provider"), "\"PowerPoint.Application\"");
  EXPECT_EQ(valueOf("running"), "true");
}

TEST_F(StateTest, AShowThatHasEndedLeavesNeitherSlideNorProvider) {
  start();
  startShow(kDeck, 7);
  waitForPoll();
  endShow();
  waitForPoll();
  EXPECT_EQ(valueOf("showing"), "false");
  EXPECT_EQ(valueOf("slide"), "0");
  EXPECT_EQ(valueOf("provider"), "\"\"");
}

TEST_F(StateTest, TheTimeIsWhatTheClockShowsTheOvertimesPrefixIncluded) {
  app.settings.duration = 1;
  startTimer(app.timer, clock.nowMs());
  clock.advance(2000);
  EXPECT_EQ(valueOf("time"), "\"\xE5\xB7\xB2\xE8\xB6\x85\xE6\x97\xB6 00:01\"");
}

TEST_F(StateTest, APausedTimerIsNotRunning) {
  startTimer(app.timer, clock.nowMs());
  pauseTimer(app.timer, clock.nowMs());
  EXPECT_EQ(valueOf("running"), "false");
  EXPECT_EQ(valueOf("paused"), "true");
}

TEST_F(StateTest, ModeDirectionDurationAndVisibilityAreToldAsTheyAre) {
  start();
  app.settings.autoMode = false;
  app.settings.down = false;
  app.settings.duration = 61;
  clockWindow.hide();
  EXPECT_EQ(valueOf("automatic"), "false");
  EXPECT_EQ(valueOf("down"), "false");
  EXPECT_EQ(valueOf("duration"), "61");
  EXPECT_EQ(valueOf("visible"), "false");
}

TEST_F(StateTest, ABlackScreenIsTold) {
  blackScreen.cover(screens.monitors());
  EXPECT_EQ(valueOf("black"), "true");
}

TEST_F(StateTest, TheSystemsClockIsToldOnlyWhereItIsWanted) {
  clock.wall = {9, 5, 7};
  EXPECT_EQ(valueOf("machineTime"), "\"\"");
  app.settings.machineTime = true;
  EXPECT_EQ(valueOf("machineTime"), "\"09:05:07\"");
}

TEST_F(StateTest, EachFileHasItsIdItsNameAndItsSkip) {
  showFolder();
  addFile(u"a.pptx");
  addFile(u"b.pptx");
  app.settings.skipList = {normalizePath(files(), u"C:\\talks\\b.pptx")};
  const std::string first = fileId(u"C:\\talks\\a.pptx");
  const std::string second = fileId(u"C:\\talks\\b.pptx");
  EXPECT_EQ(valueOf("files"), "[{\"id\":\"" + first +
                                  "\",\"name\":\"a.pptx\",\"skip\":false},{\"id\":\"" + second +
                                  "\",\"name\":\"b.pptx\",\"skip\":true}]");
}

TEST_F(StateTest, AFolderWithoutDecksIsAnEmptyList) {
  showFolder();
  addFile(u"readme.txt");
  EXPECT_EQ(valueOf("files"), "[]");
}

TEST_F(StateTest, AChineseNameIsRawUtf8AndAQuotationMarkIsEscaped) {
  showFolder();
  addFile(u"演 \"x\".pptx");
  EXPECT_NE(valueOf("files").find("\xE6\xBC\x94 \\\"x\\\".pptx"), std::string::npos);
}

TEST_F(StateTest, TheFolderIsReadAnewForEveryDocument) {
  showFolder();
  EXPECT_EQ(valueOf("files"), "[]");
  addFile(u"a.pptx");
  EXPECT_NE(valueOf("files"), "[]");
}

}  // namespace
}  // namespace mrl

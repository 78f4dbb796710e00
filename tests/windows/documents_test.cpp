// Document control with the real automation, windows and files, against presentation programs in
// other processes.
#include "presentation/documents.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "base/wide_win.h"
#include "presentation/automation_win.h"
#include "presentation/show_poll.h"
#include "presentation/window_system_win.h"
#include "settings/files_win.h"
#include "settings/path_rules.h"
#include "windows/standin_fixture.h"

namespace mrl {
namespace {

using standin::Client;
using standin::TemporaryDeck;
using standin::waitUntil;
using Calls = std::vector<std::wstring>;

class DocumentsSystemTest : public testing::Test {
 protected:
  static constexpr char16_t kUntouched[] = u"untouched";

  void SetUp() override { ASSERT_TRUE(powerPoint.start(L"powerpnt.exe")); }
  void TearDown() override { state = {}; }  // released while the other processes still run

  void tell(Client& program, const std::wstring& command) {
    ASSERT_EQ(program.command(command), L"ok") << "after a command";
  }
  void tell(const std::wstring& command) { tell(powerPoint, command); }
  void putOnScreen(const TemporaryDeck& deck) {
    tell(L"open \"" + deck.path + L"\"");
    tell(L"show");
  }
  void clearLog() { tell(L"clear-log"); }

  bool open(const std::wstring& path, bool play) {
    return openDocument(access, state, u16From(path), play, error);
  }
  bool close(const std::wstring& path) {
    return closeDocument(access, state, u16From(path), error);
  }
  bool raise(const TemporaryDeck& deck) {
    return raiseDocumentShow(access, state, u16From(deck.path));
  }

  static Calls lines(Client& program) {
    std::wistringstream log(program.command(L"log"));
    Calls all;
    for (std::wstring line; std::getline(log, line);) all.push_back(line);
    return all;
  }
  /// The logged calls that change something, without the reads.
  static Calls actions(Client& program) {
    Calls all = lines(program);
    std::erase_if(all, [](const std::wstring& line) {
      return line.starts_with(L"get ") || line.find(L".Item(") != line.npos;
    });
    return all;
  }
  static Calls tail(const Calls& all, size_t count) {
    return {all.end() - static_cast<ptrdiff_t>(std::min(count, all.size())), all.end()};
  }
  std::wstring opening(const TemporaryDeck& deck) const {
    return L"call Presentations.Open(\"" + deck.path + L"\", 0, 0, -1)";
  }

  static HWND showOf(const std::wstring& deck, const std::wstring& program = L"PowerPoint") {
    const wchar_t* windowClass = program == L"PowerPoint" ? L"screenClass" : L"WPPViewClass";
    return standin::findWindow(windowClass, program + L" Slide Show - [" + deck + L"]");
  }
  /// True once the deck's show is the foreground window.
  static bool isInFront(const std::wstring& deck) {
    return waitUntil([&] { return showOf(deck) && GetForegroundWindow() == showOf(deck); });
  }
  bool stateHas(const std::wstring& words) {
    return powerPoint.command(L"state").find(words) != std::wstring::npos;
  }
  bool expects(const TemporaryDeck& deck) {
    return samePath(state.expectedDocument, normalizePath(files, u16From(deck.path)));
  }

  const standin::Apartment apartment;
  AutomationWin automation;
  WindowSystemWin windows;
  FilesWin files;
  PresentationAccess access{automation, windows, files};
  AutomationState state;
  std::u16string error = kUntouched;
  TemporaryDeck demo{L"demo.pptx"};
  TemporaryDeck other{L"other.pptx"};
  Client powerPoint;
};

TEST_F(DocumentsSystemTest, ADeckIsOpenedAndPlayed) {
  EXPECT_TRUE(open(demo.path, true));
  EXPECT_EQ(actions(powerPoint), (Calls{opening(demo), L"call SlideShowSettings.Run()"}));
  EXPECT_TRUE(stateHas(L"deck demo.pptx slides 10 selected 1 show 1"));
  EXPECT_TRUE(isInFront(L"demo.pptx"));
  EXPECT_TRUE(expects(demo));
  EXPECT_EQ(state.progId, u"PowerPoint.Application");
  EXPECT_EQ(error, kUntouched);
}

TEST_F(DocumentsSystemTest, TheDeckOnScreenIsRaisedAndNotRestarted) {
  putOnScreen(demo);
  tell(L"goto 3");
  clearLog();
  SetForegroundWindow(standin::findWindow(L"PPTFrameClass", L"demo.pptx - PowerPoint"));
  EXPECT_TRUE(open(demo.path, true));
  EXPECT_EQ(actions(powerPoint), Calls{});
  EXPECT_TRUE(stateHas(L"show 3"));
  EXPECT_TRUE(isInFront(L"demo.pptx"));
  EXPECT_TRUE(expects(demo));
}

TEST_F(DocumentsSystemTest, ADeckThatIsOpenOnItsFourthSlideReplacesTheShowOfAnother) {
  tell(L"open \"" + demo.path + L"\"");
  tell(L"select 4");
  putOnScreen(other);
  clearLog();
  EXPECT_TRUE(open(demo.path, true));
  EXPECT_EQ(tail(lines(powerPoint), 13),
            (Calls{L"get Presentation.FullName", L"get Presentation.Windows",
                   L"call DocumentWindows.Item(1)", L"get DocumentWindow.View",
                   L"get DocumentView.Slide", L"get Slide.SlideIndex", L"get SlideShowWindow.View",
                   L"call SlideShowView.Exit()", L"get Presentation.SlideShowSettings",
                   L"call SlideShowSettings.Run()", L"get SlideShowWindow.View",
                   L"call SlideShowView.GotoSlide(4)", L"get SlideShowWindow.HWND"}));
  EXPECT_TRUE(stateHas(L"deck demo.pptx slides 10 selected 4 show 4"));
  EXPECT_TRUE(stateHas(L"deck other.pptx slides 10 selected 1 show none"));
  EXPECT_TRUE(isInFront(L"demo.pptx"));
}

TEST_F(DocumentsSystemTest, ADeckThatIsOpenOnItsFirstSlideIsNotSentToIt) {
  tell(L"open \"" + demo.path + L"\"");
  clearLog();
  EXPECT_TRUE(open(demo.path, true));
  EXPECT_EQ(actions(powerPoint), Calls{L"call SlideShowSettings.Run()"});
  EXPECT_TRUE(isInFront(L"demo.pptx"));
}

TEST_F(DocumentsSystemTest, ANewShowWithoutAHandleIsRaisedByItsTitle) {
  tell(L"hwnd-zero on");
  EXPECT_TRUE(open(demo.path, true));
  EXPECT_TRUE(isInFront(L"demo.pptx"));
}

TEST_F(DocumentsSystemTest, AnotherSpellingOfThePathIsTheSameDocument) {
  tell(L"open \"" + demo.path + L"\"");
  clearLog();
  std::wstring spelled = demo.path;
  CharUpperW(spelled.data());
  std::replace(spelled.begin(), spelled.end(), L'\\', L'/');
  spelled.insert(spelled.rfind(L'/'), L"/./x/..");
  EXPECT_TRUE(open(spelled, false));
  EXPECT_EQ(actions(powerPoint), Calls{});
}

TEST_F(DocumentsSystemTest, WithoutPlayingTheDeckOpensBehindTheShow) {
  putOnScreen(other);
  ASSERT_TRUE(isInFront(L"other.pptx"));
  clearLog();
  EXPECT_TRUE(open(demo.path, false));
  EXPECT_EQ(actions(powerPoint), Calls{opening(demo)});
  EXPECT_TRUE(stateHas(L"deck other.pptx slides 10 selected 1 show 1"));
  EXPECT_TRUE(stateHas(L"deck demo.pptx slides 10 selected 1 show none"));
  EXPECT_EQ(state.expectedDocument, u"");
}

TEST_F(DocumentsSystemTest, AFolderIsRefusedAndAutomationNotTouched) {
  EXPECT_FALSE(open(demo.path.substr(0, demo.path.rfind(L'\\')), true));
  EXPECT_EQ(error, u"演示文件不存在");
  EXPECT_EQ(lines(powerPoint), Calls{});
}

TEST_F(DocumentsSystemTest, AMissingFileIsRefusedAndAutomationNotTouched) {
  EXPECT_FALSE(open(demo.path + L".gone", true));
  EXPECT_EQ(error, u"演示文件不存在");
  EXPECT_EQ(lines(powerPoint), Calls{});
}

TEST_F(DocumentsSystemTest, AShowThatOnlyTheDesktopKnowsIsLeftAloneAndTheDeckStaysOpen) {
  putOnScreen(other);
  tell(L"withdraw");
  Client wps;
  ASSERT_TRUE(wps.start(L"wpp.exe"));
  EXPECT_FALSE(open(demo.path, true));
  EXPECT_EQ(error, u"无法安全切换当前放映，请先手动退出当前放映");
  EXPECT_EQ(actions(wps), Calls{opening(demo)});
  EXPECT_TRUE(stateHas(L"deck other.pptx slides 10 selected 1 show 1"));
  state = {};
}

TEST_F(DocumentsSystemTest, TheShowOfAnotherProgramGivesWay) {
  putOnScreen(other);
  Client wps;
  ASSERT_TRUE(wps.start(L"wpp.exe"));
  tell(wps, L"open \"" + demo.path + L"\"");
  clearLog();
  EXPECT_TRUE(open(demo.path, true));
  EXPECT_EQ(actions(powerPoint), Calls{L"call SlideShowView.Exit()"});
  EXPECT_EQ(actions(wps), Calls{L"call SlideShowSettings.Run()"});
  EXPECT_EQ(state.progId, u"KWPP.Application");
  EXPECT_TRUE(showOf(L"demo.pptx", L"WPS Presentation"));
  EXPECT_FALSE(showOf(L"other.pptx"));
  state = {};
}

TEST_F(DocumentsSystemTest, AKeptApplicationThatHasDiedIsNotReplaced) {
  ASSERT_TRUE(open(demo.path, false));
  const AutomationRef kept = state.application;
  powerPoint.kill();
  Client wps;
  ASSERT_TRUE(wps.start(L"wpp.exe"));
  EXPECT_FALSE(open(demo.path, true));
  EXPECT_EQ(error, u"无法通过 COM 打开演示文件");
  EXPECT_EQ(state.application, kept);
  EXPECT_EQ(actions(wps), Calls{});
}

TEST_F(DocumentsSystemTest, AnOpenThatFailsIsToldAndTheShowGoesOn) {
  putOnScreen(other);
  tell(L"fail Presentations.Open");
  EXPECT_FALSE(open(demo.path, true));
  EXPECT_EQ(error, u"无法通过 COM 打开演示文件");
  EXPECT_TRUE(stateHas(L"deck other.pptx slides 10 selected 1 show 1"));
}

TEST_F(DocumentsSystemTest, AnOpenThatIsRejectedIsToldAndTheNextOneMayGoThrough) {
  tell(L"reject Presentations.Open 1");
  EXPECT_FALSE(open(demo.path, false));
  EXPECT_EQ(error, u"无法通过 COM 打开演示文件");
  EXPECT_TRUE(open(demo.path, false));
}

TEST_F(DocumentsSystemTest, AnExitThatIsRejectedIsToldAndTheShowGoesOn) {
  putOnScreen(other);
  tell(L"reject SlideShowView.Exit 1");
  EXPECT_FALSE(open(demo.path, true));
  EXPECT_EQ(error, u"无法退出当前放映，请先手动退出后重试");
  EXPECT_TRUE(stateHas(L"deck other.pptx slides 10 selected 1 show 1"));
}

TEST_F(DocumentsSystemTest, ACloseThatIsRejectedIsToldAndTheDeckStaysOpen) {
  tell(L"open \"" + demo.path + L"\"");
  tell(L"reject Close 1");
  EXPECT_FALSE(close(demo.path));
  EXPECT_EQ(error, u"无法关闭指定文稿，请检查是否有未保存的更改");
  EXPECT_TRUE(stateHas(L"deck demo.pptx"));
}

TEST_F(DocumentsSystemTest, ADeckInTheCloudIsPlayedButNotKnownAgain) {
  tell(L"cloud-fullname on");
  EXPECT_TRUE(open(demo.path, true));
  EXPECT_TRUE(isInFront(L"demo.pptx"));
  EXPECT_FALSE(raise(demo));
  EXPECT_FALSE(close(demo.path));
  EXPECT_EQ(error, u"指定文稿没有打开");
  tell(L"goto 3");
  EXPECT_TRUE(open(demo.path, true));
  EXPECT_TRUE(stateHas(L"show 1")) << "its show began anew";
}

TEST_F(DocumentsSystemTest, AShowOnItsEndScreenGivesWayToAnotherDeck) {
  tell(L"end-screen on");
  putOnScreen(other);
  tell(L"goto 10");
  tell(L"next");
  ASSERT_TRUE(stateHas(L"deck other.pptx slides 10 selected 1 show end"));
  EXPECT_TRUE(open(demo.path, true));
  EXPECT_TRUE(stateHas(L"deck other.pptx slides 10 selected 1 show none"));
  EXPECT_TRUE(isInFront(L"demo.pptx"));
}

TEST_F(DocumentsSystemTest, AnExitThatFailsIsToldAndTheShowGoesOn) {
  putOnScreen(other);
  tell(L"fail SlideShowView.Exit");
  EXPECT_FALSE(open(demo.path, true));
  EXPECT_EQ(error, u"无法退出当前放映，请先手动退出后重试");
  EXPECT_TRUE(stateHas(L"deck other.pptx slides 10 selected 1 show 1"));
  EXPECT_TRUE(stateHas(L"deck demo.pptx slides 10 selected 1 show none"));
}

TEST_F(DocumentsSystemTest, ARunThatFailsIsToldAndNoShowIsLeft) {
  putOnScreen(other);
  tell(L"fail SlideShowSettings.Run");
  EXPECT_FALSE(open(demo.path, true));
  EXPECT_EQ(error, u"无法开始放映");
  EXPECT_TRUE(stateHas(L"deck other.pptx slides 10 selected 1 show none"));
  EXPECT_TRUE(stateHas(L"deck demo.pptx slides 10 selected 1 show none"));
}

TEST_F(DocumentsSystemTest, ANewShowThatCanNotBeMovedStaysOnItsFirstSlide) {
  tell(L"open \"" + demo.path + L"\"");
  tell(L"select 4");
  tell(L"fail SlideShowView.GotoSlide");
  EXPECT_FALSE(open(demo.path, true));
  EXPECT_EQ(error, u"已开始放映，但无法跳转到当前页");
  EXPECT_TRUE(stateHas(L"deck demo.pptx slides 10 selected 4 show 1"));
  EXPECT_TRUE(expects(demo));
}

TEST_F(DocumentsSystemTest, AnApplicationIsStartedWhenNoneRuns) {
  powerPoint.kill();  // its COM registration remains
  for (const std::u16string_view provider : kProviders) {
    ASSERT_TRUE(waitUntil([&] {
      ProgramWindows programs(windows);
      return !automation.running(provider, programs);
    }));
  }
  const bool opened = open(demo.path, true);
  Client started;
  ASSERT_TRUE(started.attach(L"PowerPoint.Application"));
  EXPECT_TRUE(opened);
  EXPECT_EQ(state.progId, u"PowerPoint.Application");
  EXPECT_EQ(actions(started), (Calls{opening(demo), L"call SlideShowSettings.Run()"}));
  EXPECT_TRUE(isInFront(L"demo.pptx"));
  state = {};
}

TEST_F(DocumentsSystemTest, ADeckIsClosed) {
  putOnScreen(demo);
  tell(L"open \"" + other.path + L"\"");
  clearLog();
  EXPECT_TRUE(close(demo.path));
  EXPECT_EQ(actions(powerPoint), Calls{L"call Presentation.Close()"});
  EXPECT_FALSE(stateHas(L"demo.pptx"));
  EXPECT_TRUE(stateHas(L"deck other.pptx"));
  EXPECT_EQ(error, kUntouched);
  EXPECT_EQ(state.application, nullptr);
}

TEST_F(DocumentsSystemTest, ACloseThatFailsIsToldAndTheDeckStaysOpen) {
  tell(L"open \"" + demo.path + L"\"");
  tell(L"fail Close");
  EXPECT_FALSE(close(demo.path));
  EXPECT_EQ(error, u"无法关闭指定文稿，请检查是否有未保存的更改");
  EXPECT_TRUE(stateHas(L"deck demo.pptx"));
}

TEST_F(DocumentsSystemTest, ADeckThatIsNotOpenCanNotBeClosed) {
  tell(L"open \"" + other.path + L"\"");
  EXPECT_FALSE(close(demo.path));
  EXPECT_EQ(error, u"指定文稿没有打开");
  EXPECT_TRUE(stateHas(L"deck other.pptx"));
}

TEST_F(DocumentsSystemTest, NothingCanBeClosedWhileNoApplicationRuns) {
  powerPoint.kill();
  EXPECT_FALSE(close(demo.path));
  EXPECT_EQ(error, u"指定文稿没有打开");
}

TEST_F(DocumentsSystemTest, TheShowOfADocumentIsRaised) {
  putOnScreen(demo);
  SetForegroundWindow(standin::findWindow(L"PPTFrameClass", L"demo.pptx - PowerPoint"));
  EXPECT_TRUE(waitUntil([&] { return raise(demo); }));
  EXPECT_TRUE(isInFront(L"demo.pptx"));
}

TEST_F(DocumentsSystemTest, AShowThatOnlyTheDesktopKnowsIsRaisedByItsTitle) {
  putOnScreen(demo);
  tell(L"withdraw");
  EXPECT_TRUE(waitUntil([&] { return raise(demo); }));
  EXPECT_TRUE(isInFront(L"demo.pptx"));
  EXPECT_FALSE(raise(other));
}

TEST_F(DocumentsSystemTest, ADeckThatIsOpenButNotShownIsNotRaised) {
  putOnScreen(other);
  tell(L"open \"" + demo.path + L"\"");
  ASSERT_TRUE(waitUntil([&] { return raise(other); }));
  EXPECT_FALSE(raise(demo));
  EXPECT_EQ(GetForegroundWindow(), showOf(L"other.pptx"));
}

}  // namespace
}  // namespace mrl

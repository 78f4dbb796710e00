// Reaching the stand-in through its windows, when it isn't in the running object table.
#include <oleacc.h>

#include "windows/standin_fixture.h"

namespace mrl::standin {
namespace {

HRESULT nativeObject(HWND window, Dispatch& out) {
  return AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_NATIVEOM), IID_IDispatch,
                                    reinterpret_cast<void**>(out.GetAddressOf()));
}

HWND inner(HWND window, const wchar_t* windowClass) {
  return FindWindowExW(window, nullptr, windowClass, nullptr);
}

class StandInReachTest : public StandInTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(standIn.start(L"powerpnt.exe", L"--deck=C:\\a.pptx --show --unlisted"));
    editing = findWindow(L"PPTFrameClass", kEditingTitle);
    show = findWindow(L"screenClass", kShowTitle);
    ASSERT_TRUE(editing && show);
  }
  HWND editing = nullptr;
  HWND show = nullptr;
};

TEST_F(StandInReachTest, UnlistedFromTheStartItIsNotFound) {
  Dispatch found;
  EXPECT_TRUE(FAILED(findRunning(L"PowerPoint.Application", found)));
}

TEST_F(StandInReachTest, TheWindowInsideAnEditingWindowLeadsToTheApplication) {
  Dispatch window;
  ASSERT_EQ(nativeObject(inner(editing, L"mdiClass"), window), S_OK);
  EXPECT_EQ(standin::ask(window, L"View.Slide.SlideIndex").number(), 1);
  EXPECT_EQ(standin::ask(window, L"Application.Name").text(), L"PowerPoint");
  EXPECT_TRUE(logHas(L"get Window.NativeObject"));
}

TEST_F(StandInReachTest, TheWindowInsideAShowLeadsToTheApplication) {
  Dispatch window;
  ASSERT_EQ(nativeObject(inner(show, L"paneClassDC"), window), S_OK);
  EXPECT_EQ(standin::ask(window, L"Presentation.FullName").text(), L"C:\\a.pptx");
  EXPECT_EQ(standin::ask(window, L"Application.SlideShowWindows.Count").number(), 1);
}

TEST_F(StandInReachTest, ItsFramesThemselvesAnswerNothing) {
  Dispatch window;
  EXPECT_TRUE(FAILED(nativeObject(editing, window)));
  EXPECT_TRUE(FAILED(nativeObject(show, window)));
}

TEST_F(StandInReachTest, OfWpsTheFramesAnswer) {
  Client wps;
  ASSERT_TRUE(wps.start(L"wpp.exe", L"--deck=C:\\w.dps --unlisted"));
  Dispatch window;
  ASSERT_EQ(nativeObject(findWindow(L"WPPFrameClass", L"w.dps - WPS Presentation"), window), S_OK);
  EXPECT_EQ(standin::ask(window, L"Application.Name").text(), L"WPS Presentation");
}

TEST_F(StandInReachTest, WithdrawnItsWindowsAnswerNothingAndItsApplicationIsDead) {
  Dispatch window;
  ASSERT_EQ(nativeObject(inner(editing, L"mdiClass"), window), S_OK);
  application = standin::ask(window, L"Application").object();
  ASSERT_EQ(ask(L"Name").result, S_OK);
  tell(L"withdraw");
  EXPECT_TRUE(FAILED(ask(L"Name").result));
  EXPECT_TRUE(FAILED(nativeObject(inner(editing, L"mdiClass"), window)));
}

TEST_F(StandInReachTest, WindowsAnswerNothingOrNonsenseWhenTold) {
  Dispatch window;
  tell(L"fail NativeObject 1");
  EXPECT_TRUE(FAILED(nativeObject(inner(editing, L"mdiClass"), window)));
  tell(L"nonsense NativeObject 1");
  EXPECT_TRUE(FAILED(nativeObject(inner(editing, L"mdiClass"), window)));
  EXPECT_EQ(nativeObject(inner(editing, L"mdiClass"), window), S_OK);
}

class StandInLooksTest : public testing::Test {
 protected:
  Client standIn;
};

TEST_F(StandInLooksTest, WpsHasWindowsOfItsOwnClasses) {
  ASSERT_TRUE(standIn.start(L"wpp.exe", L"--deck=C:\\w.dps --show"));
  EXPECT_TRUE(findWindow(L"WPPFrameClass", L"w.dps - WPS Presentation"));
  EXPECT_TRUE(findWindow(L"WPPViewClass", L"WPS Presentation Slide Show - [w.dps]"));
}

TEST_F(StandInLooksTest, ClassesAndTheTitleOfShowsCanBeChosen) {
  ASSERT_TRUE(standIn.start(L"wpp.exe",
                            L"--deck=C:\\w.dps --show --editing-class=Desk --show-class=Stage "
                            L"--show-title=Now"));
  EXPECT_TRUE(findWindow(L"Desk", L"w.dps - WPS Presentation"));
  EXPECT_TRUE(findWindow(L"Stage", L"Now - [w.dps]"));
}

}  // namespace
}  // namespace mrl::standin

// The stand-in's object model, reached as other programs do.
#include "windows/standin_fixture.h"

namespace mrl::standin {
namespace {

constexpr WORD kMethod = DISPATCH_METHOD;
constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kBoth = kMethod | kGet;

const std::wstring kShow = L"SlideShowWindows.Item(1)";

Answer open(const Dispatch& application, const std::wstring& path) {
  const Dispatch presentations = ask(application, L"Presentations").object();
  return invoke(presentations.Get(), L"Open", kMethod, {path, 0, 0, -1});
}

TEST_F(StandInTest, TheApplicationTellsItsName) { EXPECT_EQ(ask(L"Name").text(), L"PowerPoint"); }

TEST_F(StandInTest, OpenMakesAPresentationWithAnEditingWindow) {
  const TemporaryDeck deck(L"fresh.pptx");
  const Answer opened = open(application, deck.path);
  ASSERT_EQ(opened.result, S_OK);
  EXPECT_EQ(standin::ask(opened.object(), L"FullName").text(), deck.path);
  EXPECT_TRUE(findWindow(L"PPTFrameClass", L"fresh.pptx - PowerPoint"));
  EXPECT_EQ(command(L"state"),
            L"automation on; active fresh.pptx; deck fresh.pptx slides 10 selected 1 show none");
}

TEST_F(StandInTest, OpenOfAMissingFileFails) {
  EXPECT_EQ(open(application, L"C:\\missing.pptx").result, DISP_E_EXCEPTION);
  EXPECT_EQ(ask(L"Presentations.Count").number(), 0);
}

TEST_F(StandInTest, OpenOfAnOpenDeckGivesThatDeck) {
  const TemporaryDeck deck(L"twice.pptx");
  open(application, deck.path);
  EXPECT_EQ(open(application, deck.path).result, S_OK);
  EXPECT_EQ(ask(L"Presentations.Count").number(), 1);
}

TEST_F(StandInTest, PresentationsAreCountedAndListedInTheOrderOfOpening) {
  tell(L"open C:\\a.pptx");
  tell(L"open C:\\b.pptx");
  EXPECT_EQ(ask(L"Presentations.Count").number(), 2);
  EXPECT_EQ(ask(L"Presentations.Item(1).FullName").text(), L"C:\\a.pptx");
  EXPECT_EQ(ask(L"Presentations.Item(2).FullName").text(), L"C:\\b.pptx");
}

TEST_F(StandInTest, AnItemOutsideItsCollectionFails) {
  tell(L"open C:\\a.pptx");
  EXPECT_EQ(ask(L"Presentations.Item(0)").result, DISP_E_EXCEPTION);
  EXPECT_EQ(ask(L"Presentations.Item(2)").result, DISP_E_EXCEPTION);
  EXPECT_EQ(ask(L"SlideShowWindows.Item(1)").result, DISP_E_EXCEPTION);
  EXPECT_EQ(ask(L"ActivePresentation.Windows.Item(2)").result, DISP_E_EXCEPTION);
}

TEST_F(StandInTest, CloseEndsTheDeckItsShowAndItsWindows) {
  tell(L"open C:\\a.pptx");
  tell(L"show");
  const Dispatch presentation = ask(L"Presentations.Item(1)").object();
  EXPECT_EQ(standin::ask(presentation, L"Close()").result, S_OK);
  EXPECT_EQ(ask(L"Presentations.Count").number(), 0);
  EXPECT_EQ(ask(L"SlideShowWindows.Count").number(), 0);
  EXPECT_FALSE(findWindow(L"PPTFrameClass", L"a.pptx - PowerPoint"));
  EXPECT_FALSE(findWindow(L"screenClass", L"PowerPoint Slide Show - [a.pptx]"));
  EXPECT_EQ(standin::ask(presentation, L"FullName").result, DISP_E_EXCEPTION);
}

TEST_F(StandInTest, TheActivePresentationIsTheOneOpenedShownOrActivatedLast) {
  tell(L"open C:\\a.pptx");
  tell(L"open C:\\b.pptx");
  EXPECT_EQ(ask(L"ActivePresentation.FullName").text(), L"C:\\b.pptx");
  tell(L"show a.pptx");
  EXPECT_EQ(ask(L"ActivePresentation.FullName").text(), L"C:\\a.pptx");
  tell(L"activate b.pptx");
  EXPECT_EQ(ask(L"ActivePresentation.FullName").text(), L"C:\\b.pptx");
  tell(L"close");
  EXPECT_EQ(ask(L"ActivePresentation.FullName").text(), L"C:\\a.pptx");
}

TEST_F(StandInTest, WithoutADeckNothingIsActive) {
  EXPECT_EQ(ask(L"ActivePresentation").result, DISP_E_EXCEPTION);
  EXPECT_EQ(ask(L"ActiveWindow").result, DISP_E_EXCEPTION);
}

TEST_F(StandInTest, TheActiveWindowIsOnTheSelectedSlide) {
  tell(L"open C:\\a.pptx");
  tell(L"select 7");
  EXPECT_EQ(ask(L"ActiveWindow.View.Slide.SlideIndex").number(), 7);
}

TEST_F(StandInTest, APresentationHasOneEditingWindow) {
  tell(L"open C:\\a.pptx");
  tell(L"open C:\\b.pptx");
  tell(L"select 4 a.pptx");
  EXPECT_EQ(ask(L"Presentations.Item(1).Windows.Count").number(), 1);
  EXPECT_EQ(ask(L"Presentations.Item(1).Windows.Item(1).View.Slide.SlideIndex").number(), 4);
}

TEST_F(StandInTest, RunStartsAShowFromSlideOneAndGivesItsWindow) {
  tell(L"open C:\\a.pptx");
  tell(L"select 4");
  const Answer run = ask(L"ActivePresentation.SlideShowSettings.Run()");
  ASSERT_EQ(run.result, S_OK);
  EXPECT_EQ(standin::ask(run.object(), L"View.Slide.SlideIndex").number(), 1);
  EXPECT_EQ(ask(L"SlideShowWindows.Count").number(), 1);
}

TEST_F(StandInTest, ShowsAreListedInTheOrderOfStarting) {
  tell(L"open C:\\a.pptx");
  tell(L"open C:\\b.pptx");
  tell(L"show b.pptx");
  tell(L"show a.pptx");
  EXPECT_EQ(ask(L"SlideShowWindows.Count").number(), 2);
  EXPECT_EQ(ask(L"SlideShowWindows.Item(1).Presentation.FullName").text(), L"C:\\b.pptx");
  EXPECT_EQ(ask(L"SlideShowWindows.Item(2).Presentation.FullName").text(), L"C:\\a.pptx");
}

TEST_F(StandInTest, HwndIsTheWindowOfTheShow) {
  tell(L"open C:\\a.pptx");
  tell(L"show");
  const HWND window = findWindow(L"screenClass", L"PowerPoint Slide Show - [a.pptx]");
  ASSERT_TRUE(window);
  EXPECT_EQ(ask(kShow + L".HWND").number(), static_cast<int>(reinterpret_cast<intptr_t>(window)));
}

TEST_F(StandInTest, GotoSlideNextAndPreviousMoveTheShow) {
  tell(L"open C:\\a.pptx");
  tell(L"show");
  EXPECT_EQ(ask(kShow + L".View.GotoSlide(6)").result, S_OK);
  EXPECT_EQ(ask(kShow + L".View.Slide.SlideIndex").number(), 6);
  EXPECT_EQ(ask(kShow + L".View.Next()").result, S_OK);
  EXPECT_EQ(ask(kShow + L".View.Slide.SlideIndex").number(), 7);
  EXPECT_EQ(ask(kShow + L".View.Previous()").result, S_OK);
  EXPECT_EQ(ask(kShow + L".View.Slide.SlideIndex").number(), 6);
}

TEST_F(StandInTest, GotoSlideOutsideTheDeckFailsAndMovesNothing) {
  tell(L"open C:\\a.pptx 5");
  tell(L"show");
  EXPECT_EQ(ask(kShow + L".View.GotoSlide(0)").result, DISP_E_EXCEPTION);
  EXPECT_EQ(ask(kShow + L".View.GotoSlide(6)").result, DISP_E_EXCEPTION);
  EXPECT_EQ(ask(kShow + L".View.Slide.SlideIndex").number(), 1);
}

TEST_F(StandInTest, PreviousStaysOnTheFirstSlide) {
  tell(L"open C:\\a.pptx");
  tell(L"show");
  EXPECT_EQ(ask(kShow + L".View.Previous()").result, S_OK);
  EXPECT_EQ(ask(kShow + L".View.Slide.SlideIndex").number(), 1);
}

TEST_F(StandInTest, NextPastTheLastSlideEndsTheShow) {
  tell(L"open C:\\a.pptx 2");
  tell(L"show");
  tell(L"goto 2");
  EXPECT_EQ(ask(kShow + L".View.Next()").result, S_OK);
  EXPECT_EQ(ask(L"SlideShowWindows.Count").number(), 0);
}

TEST_F(StandInTest, ExitEndsTheShowAndKeepsTheDeck) {
  tell(L"open C:\\a.pptx");
  tell(L"show");
  EXPECT_EQ(ask(kShow + L".View.Exit()").result, S_OK);
  EXPECT_EQ(ask(L"SlideShowWindows.Count").number(), 0);
  EXPECT_EQ(ask(L"Presentations.Count").number(), 1);
  EXPECT_FALSE(findWindow(L"screenClass", L"PowerPoint Slide Show - [a.pptx]"));
}

TEST_F(StandInTest, ObjectsOfAnEndedShowFail) {
  tell(L"open C:\\a.pptx");
  tell(L"show");
  const Dispatch show = ask(kShow).object();
  const Dispatch view = standin::ask(show, L"View").object();
  tell(L"exit");
  for (const wchar_t* member : {L"View", L"Presentation", L"HWND"})
    EXPECT_EQ(standin::ask(show, member).result, DISP_E_EXCEPTION) << member;
  for (const wchar_t* member : {L"Slide", L"GotoSlide(1)", L"Next()", L"Previous()", L"Exit()"})
    EXPECT_EQ(standin::ask(view, member).result, DISP_E_EXCEPTION) << member;
}

struct MemberCase {
  const wchar_t* path;  // from the application to the object
  const wchar_t* name;
  WORD kind;
};

const MemberCase kMembers[] = {
    {L"", L"Name", kGet},
    {L"", L"Presentations", kGet},
    {L"", L"SlideShowWindows", kGet},
    {L"", L"ActivePresentation", kGet},
    {L"", L"ActiveWindow", kGet},
    {L"Presentations", L"Count", kGet},
    {L"Presentations", L"Open", kMethod},
    {L"SlideShowWindows", L"Count", kGet},
    {L"ActivePresentation.Windows", L"Count", kGet},
    {L"ActivePresentation", L"FullName", kGet},
    {L"ActivePresentation", L"Close", kMethod},
    {L"ActivePresentation", L"Windows", kGet},
    {L"ActivePresentation", L"SlideShowSettings", kGet},
    {L"ActivePresentation.SlideShowSettings", L"Run", kMethod},
    {L"SlideShowWindows.Item(1)", L"View", kGet},
    {L"SlideShowWindows.Item(1)", L"Presentation", kGet},
    {L"SlideShowWindows.Item(1)", L"HWND", kGet},
    {L"SlideShowWindows.Item(1).View", L"Slide", kGet},
    {L"SlideShowWindows.Item(1).View", L"GotoSlide", kMethod},
    {L"SlideShowWindows.Item(1).View", L"Next", kMethod},
    {L"SlideShowWindows.Item(1).View", L"Previous", kMethod},
    {L"SlideShowWindows.Item(1).View", L"Exit", kMethod},
    {L"ActiveWindow", L"View", kGet},
    {L"ActiveWindow.View", L"Slide", kGet},
    {L"ActiveWindow.View.Slide", L"SlideIndex", kGet},
};

TEST_F(StandInTest, AMemberAskedForByTheWrongKindOfCallIsNotFound) {
  tell(L"open C:\\a.pptx");
  tell(L"show");
  for (const MemberCase& row : kMembers) {
    const Dispatch object = *row.path ? ask(row.path).object() : application;
    const WORD wrong = row.kind == kGet ? kMethod : kGet;
    EXPECT_EQ(invoke(object.Get(), row.name, wrong).result, DISP_E_MEMBERNOTFOUND) << row.name;
  }
  EXPECT_TRUE(logHas(L"refused SlideShowView.Next flags 2"));
}

TEST_F(StandInTest, ItemTakesBothKindsOfCall) {
  tell(L"open C:\\a.pptx");
  tell(L"show");
  for (const wchar_t* path : {L"Presentations", L"SlideShowWindows", L"ActivePresentation.Windows"})
    for (const WORD flags : {kMethod, kGet, kBoth})
      EXPECT_EQ(invoke(ask(path).object().Get(), L"Item", flags, {1}).result, S_OK)
          << path << flags;
}

TEST_F(StandInTest, AMemberIsKnownByItsExactNameOnly) {
  EXPECT_EQ(invoke(application.Get(), L"Quit", kMethod).result, DISP_E_UNKNOWNNAME);
  EXPECT_EQ(invoke(application.Get(), L"name", kGet).result, DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ask(L"Presentations.HWND").result, DISP_E_UNKNOWNNAME);
}

TEST_F(StandInTest, TheNumberOfArgumentsIsChecked) {
  const Dispatch presentations = ask(L"Presentations").object();
  EXPECT_EQ(invoke(presentations.Get(), L"Item", kBoth).result, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(invoke(presentations.Get(), L"Count", kGet, {1}).result, DISP_E_BADPARAMCOUNT);
}

TEST_F(StandInTest, AnArgumentOfAWrongTypeIsNamedByItsPlaceFromTheEnd) {
  const Dispatch presentations = ask(L"Presentations").object();
  const Answer answer = invoke(presentations.Get(), L"Open", kMethod, {L"x", 0, L"no", -1});
  EXPECT_EQ(answer.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(answer.wrongArgument, 1u);
}

TEST_F(StandInTest, EveryCallIsLoggedWithItsArguments) {
  open(application, L"C:\\missing.pptx");
  ask(L"Name");
  EXPECT_EQ(command(L"log"),
            L"get Application.Presentations\n"
            L"call Presentations.Open(\"C:\\missing.pptx\", 0, 0, -1)\n"
            L"get Application.Name\n");
  tell(L"clear-log");
  EXPECT_EQ(command(L"log"), L"");
}

}  // namespace
}  // namespace mrl::standin

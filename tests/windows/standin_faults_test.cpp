// The stand-in's faults, and what happens to clients that hold its objects when it goes away.
#include "windows/standin_fixture.h"
#include "windows/start_process.h"

namespace mrl::standin {
namespace {

HRESULT create(const wchar_t* progId, Dispatch& out) {
  CLSID id;
  const HRESULT known = CLSIDFromProgID(progId, &id);
  if (FAILED(known)) return known;
  return CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch,
                          reinterpret_cast<void**>(out.GetAddressOf()));
}

TEST_F(StandInTest, AFailingMemberFailsAsOftenAsItWasTold) {
  tell(L"fail Name 2");
  EXPECT_EQ(ask(L"Name").result, E_FAIL);
  EXPECT_EQ(ask(L"Name").result, E_FAIL);
  EXPECT_EQ(ask(L"Name").result, S_OK);
}

TEST_F(StandInTest, AFailingMemberWithoutACountFailsUntilTheFaultsAreCleared) {
  tell(L"fail Name");
  for (int i = 0; i < 5; ++i) EXPECT_EQ(ask(L"Name").result, E_FAIL);
  tell(L"clear-faults");
  EXPECT_EQ(ask(L"Name").result, S_OK);
}

TEST_F(StandInTest, AFailingMemberExplainsItself) {
  tell(L"fail Name");
  const Answer answer = ask(L"Name");
  EXPECT_EQ(answer.source, L"Stand-in");
  EXPECT_EQ(answer.description, L"Name was told to fail");
  EXPECT_EQ(answer.helpFile, L"standin.chm");
}

TEST_F(StandInTest, AMemberOfOneObjectFailsAlone) {
  tell(L"fail SlideShowWindows.Count");
  EXPECT_EQ(ask(L"Presentations.Count").result, S_OK);
  EXPECT_EQ(ask(L"SlideShowWindows.Count").result, E_FAIL);
}

TEST_F(StandInTest, NothingHappensInAFailingCall) {
  tell(L"open C:\\a.pptx");
  tell(L"fail Close");
  EXPECT_EQ(ask(L"ActivePresentation.Close()").result, E_FAIL);
  EXPECT_EQ(ask(L"Presentations.Count").number(), 1);
}

TEST_F(StandInTest, ANonsenseMemberGivesAValueOfAWrongType) {
  tell(L"open C:\\a.pptx");
  for (const wchar_t* member : {L"Count", L"FullName", L"Windows"})
    tell(std::wstring(L"nonsense ") + member + L" 1");
  EXPECT_EQ(ask(L"Presentations.Count").text(), L"nonsense");
  EXPECT_EQ(ask(L"ActivePresentation.FullName").number(), 42);
  EXPECT_EQ(ask(L"ActivePresentation.Windows").text(), L"nonsense");
  EXPECT_EQ(ask(L"Presentations.Count").number(), 1);
}

TEST_F(StandInTest, FullNameIsEmptyWhileTold) {
  tell(L"open C:\\a.pptx");
  tell(L"empty-fullname on");
  EXPECT_EQ(ask(L"ActivePresentation.FullName").text(), L"");
  tell(L"empty-fullname off");
  EXPECT_EQ(ask(L"ActivePresentation.FullName").text(), L"C:\\a.pptx");
}

TEST_F(StandInTest, HwndIsZeroWhileTold) {
  tell(L"open C:\\a.pptx");
  tell(L"show");
  tell(L"hwnd-zero on");
  EXPECT_EQ(ask(L"SlideShowWindows.Item(1).HWND").number(), 0);
  tell(L"hwnd-zero off");
  EXPECT_NE(ask(L"SlideShowWindows.Item(1).HWND").number(), 0);
}

TEST_F(StandInTest, ARejectedCallFailsAsThatOfABusyProgramAndExplainsNothing) {
  tell(L"open C:\\a.pptx");
  tell(L"reject Close 1");
  const Answer answer = ask(L"ActivePresentation.Close()");
  EXPECT_EQ(answer.result, RPC_E_CALL_REJECTED);
  EXPECT_EQ(answer.description, L"");
  EXPECT_EQ(ask(L"Presentations.Count").number(), 1) << "nothing happened in the call";
  EXPECT_EQ(ask(L"ActivePresentation.Close()").result, S_OK);
}

TEST_F(StandInTest, ARejectedMemberWithoutACountIsRejectedUntilThatIsSwitchedOff) {
  tell(L"reject Name");
  for (int i = 0; i < 5; ++i) EXPECT_EQ(ask(L"Name").result, RPC_E_CALL_REJECTED);
  tell(L"reject Name off");
  EXPECT_EQ(ask(L"Name").result, S_OK);
}

TEST_F(StandInTest, InTheCloudFullNameIsAnAddressAndNameIsThatOfTheFile) {
  tell(L"open C:\\a.pptx");
  tell(L"cloud-fullname on");
  EXPECT_EQ(ask(L"ActivePresentation.FullName").text(), L"https://cloud.example/Documents/a.pptx");
  EXPECT_EQ(ask(L"ActivePresentation.Name").text(), L"a.pptx");
  tell(L"cloud-fullname off");
  EXPECT_EQ(ask(L"ActivePresentation.FullName").text(), L"C:\\a.pptx");
}

TEST_F(StandInTest, AfterTheLastSlideComesAnEndScreenThatIsNoSlideAndThenTheEnd) {
  tell(L"end-screen on");
  tell(L"open C:\\a.pptx 2");
  tell(L"show");
  tell(L"goto 2");
  const std::wstring view = L"SlideShowWindows.Item(1).View.";
  EXPECT_EQ(ask(view + L"Next()").result, S_OK);
  EXPECT_EQ(ask(L"SlideShowWindows.Count").number(), 1);
  EXPECT_EQ(ask(view + L"Slide").result, DISP_E_EXCEPTION);
  EXPECT_TRUE(findWindow(L"screenClass", L"PowerPoint Slide Show - [a.pptx]"));
  EXPECT_TRUE(command(L"state").ends_with(L"show end"));
  EXPECT_EQ(ask(view + L"Next()").result, S_OK);
  EXPECT_EQ(ask(L"SlideShowWindows.Count").number(), 0);
}

TEST_F(StandInTest, FromTheEndScreenAShowCanBeLedBack) {
  tell(L"end-screen on");
  tell(L"open C:\\a.pptx 2");
  tell(L"show");
  const std::pair<const wchar_t*, int> ways[] = {{L"previous", 2}, {L"goto 2", 2}, {L"show", 1}};
  for (const auto& [way, slide] : ways) {
    tell(L"goto 2");
    tell(L"next");
    ASSERT_TRUE(command(L"state").ends_with(L"show end"));
    tell(way);
    EXPECT_EQ(ask(L"SlideShowWindows.Item(1).View.Slide.SlideIndex").number(), slide) << way;
  }
}

TEST_F(StandInTest, UnlistedItIsNotFoundButReferencesFromBeforeLiveOn) {
  tell(L"unlisted on");
  Dispatch found;
  EXPECT_TRUE(FAILED(findRunning(L"PowerPoint.Application", found)));
  EXPECT_EQ(ask(L"Name").text(), L"PowerPoint");
  EXPECT_EQ(command(L"state"), L"automation unlisted; active none");
  tell(L"unlisted off");
  EXPECT_EQ(findRunning(L"PowerPoint.Application", found), S_OK);
  EXPECT_EQ(command(L"unlisted maybe"), L"error: on or off");
}

TEST_F(StandInTest, UnlistedItDoesNotAnswerToTheCreationOfItsClassEither) {
  CLSID id;
  ASSERT_EQ(CLSIDFromProgID(L"PowerPoint.Application", &id), S_OK);
  tell(L"unregister");  // otherwise COM would start a second one
  const auto createIt = [&id] {
    Dispatch created;
    return CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch,
                            reinterpret_cast<void**>(created.GetAddressOf()));
  };
  EXPECT_EQ(createIt(), S_OK);
  tell(L"unlisted on");
  EXPECT_TRUE(FAILED(createIt()));
  tell(L"register");
}

TEST_F(StandInTest, AFrozenProgramAnswersLater) {
  tell(L"freeze 1500");
  const ULONGLONG beforeMs = GetTickCount64();
  EXPECT_EQ(ask(L"Name").result, S_OK);
  EXPECT_GE(GetTickCount64() - beforeMs, 1000u);
}

TEST_F(StandInTest, AHangHoldsTheNextCallOnly) {
  tell(L"hang 1500");
  const ULONGLONG beforeMs = GetTickCount64();
  EXPECT_EQ(ask(L"Name").result, S_OK);
  const ULONGLONG betweenMs = GetTickCount64();
  EXPECT_EQ(ask(L"Name").result, S_OK);
  const ULONGLONG afterMs = GetTickCount64();
  EXPECT_GE(betweenMs - beforeMs, 1490u);
  EXPECT_LT(afterMs - betweenMs, betweenMs - beforeMs);
}

TEST_F(StandInTest, TheProcessDiesInsideACall) {
  tell(L"die-on Presentations");
  EXPECT_TRUE(FAILED(ask(L"Presentations").result));
  EXPECT_TRUE(standIn.waitForEnd());
}

TEST_F(StandInTest, AReferenceToADeadProcessFails) {
  standIn.kill();
  EXPECT_TRUE(FAILED(ask(L"Name").result));
}

TEST_F(StandInTest, ADeadProcessIsNoLongerFound) {
  standIn.kill();
  Dispatch found;
  EXPECT_TRUE(waitUntil([&] { return findRunning(L"PowerPoint.Application", found) < 0; }));
}

TEST_F(StandInTest, ANewProcessIsFoundAfterTheOldOneDied) {
  standIn.kill();
  Client next;
  ASSERT_TRUE(next.start(L"powerpnt.exe"));
  Dispatch found;
  ASSERT_TRUE(waitUntil([&] { return findRunning(L"PowerPoint.Application", found) == S_OK; }));
  EXPECT_EQ(standin::ask(found, L"Name").text(), L"PowerPoint");
}

TEST_F(StandInTest, QuitEndsTheProcessAndItsRegistrationAsRunning) {
  tell(L"quit");
  EXPECT_TRUE(standIn.waitForEnd());
  Dispatch found;
  EXPECT_TRUE(FAILED(findRunning(L"PowerPoint.Application", found)));
}

TEST_F(StandInTest, WithdrawnAutomationLeavesTheWindowsAlone) {
  tell(L"open C:\\a.pptx");
  tell(L"show");
  tell(L"withdraw");
  Dispatch found;
  EXPECT_TRUE(FAILED(findRunning(L"PowerPoint.Application", found)));
  EXPECT_TRUE(FAILED(ask(L"Name").result)) << "a reference from before";
  EXPECT_TRUE(findWindow(L"screenClass", L"PowerPoint Slide Show - [a.pptx]"));
  EXPECT_EQ(command(L"state"),
            L"automation off; active a.pptx; deck a.pptx slides 10 selected 1 show 1");
}

TEST_F(StandInTest, RestoredAutomationIsFoundAgain) {
  tell(L"withdraw");
  tell(L"restore-automation");
  Dispatch found;
  ASSERT_EQ(findRunning(L"PowerPoint.Application", found), S_OK);
  EXPECT_EQ(standin::ask(found, L"Name").text(), L"PowerPoint");
}

TEST_F(StandInTest, CreatingTheApplicationGivesTheOneThatRuns) {
  tell(L"open C:\\a.pptx");
  Dispatch created;
  ASSERT_EQ(create(L"PowerPoint.Application", created), S_OK);
  EXPECT_EQ(standin::ask(created, L"Presentations.Count").number(), 1);
}

TEST_F(StandInTest, UnregisteredItIsUnknownToTheRegistry) {
  CLSID id;
  ASSERT_EQ(CLSIDFromProgID(L"PowerPoint.Application", &id), S_OK);
  tell(L"unregister");
  EXPECT_TRUE(FAILED(CLSIDFromProgID(L"PowerPoint.Application", &id)));
  tell(L"register");
  EXPECT_EQ(CLSIDFromProgID(L"PowerPoint.Application", &id), S_OK);
}

class StandInStartTest : public testing::Test {
 protected:
  const Apartment apartment;
  Client standIn;
};

TEST_F(StandInStartTest, WppAnswersUnderItsOwnProgIdAndName) {
  ASSERT_TRUE(standIn.start(L"wpp.exe"));
  Dispatch application;
  ASSERT_EQ(findRunning(L"KWPP.Application", application), S_OK);
  EXPECT_EQ(standin::ask(application, L"Name").text(), L"WPS Presentation");
}

TEST_F(StandInStartTest, AllProgIdsItIsToldAnswer) {
  ASSERT_TRUE(standIn.start(L"wpp.exe", L"--progid=KWPP.Application --progid=WPP.Application"));
  for (const wchar_t* progId : {L"KWPP.Application", L"WPP.Application"}) {
    Dispatch application;
    ASSERT_EQ(findRunning(progId, application), S_OK) << progId;
    EXPECT_EQ(standin::ask(application, L"Presentations.Count").number(), 0);
  }
}

TEST_F(StandInStartTest, TwoProgramsRunSideBySide) {
  Client other;
  ASSERT_TRUE(standIn.start(L"powerpnt.exe"));
  ASSERT_TRUE(other.start(L"wpp.exe"));
  ASSERT_EQ(other.command(L"open C:\\w.pptx"), L"ok");
  Dispatch powerPoint, wps;
  ASSERT_EQ(findRunning(L"PowerPoint.Application", powerPoint), S_OK);
  ASSERT_EQ(findRunning(L"KWPP.Application", wps), S_OK);
  EXPECT_EQ(standin::ask(powerPoint, L"Presentations.Count").number(), 0);
  EXPECT_EQ(standin::ask(wps, L"Presentations.Count").number(), 1);
}

/// Runs the stand-in in a mode that exits by itself; returns the exit code.
DWORD runToEnd(const std::wstring& arguments) {
  const HANDLE process = startProcess(L"\"" + executableFolder() + L"powerpnt.exe\" " + arguments);
  if (process == nullptr) return ~0u;
  DWORD code = STILL_ACTIVE;
  WaitForSingleObject(process, 20'000);
  GetExitCodeProcess(process, &code);
  CloseHandle(process);
  return code;
}

TEST_F(StandInStartTest, RegisteredItIsStartedByCom) {
  ASSERT_EQ(runToEnd(L"--register --progid=WPP.Application"), 0u);
  Dispatch application;
  ASSERT_EQ(create(L"WPP.Application", application), S_OK);
  ASSERT_TRUE(standIn.attach(L"WPP.Application"));
  EXPECT_EQ(standin::ask(application, L"Presentations.Count").number(), 0);
  EXPECT_EQ(standIn.command(L"open C:\\a.pptx"), L"ok");
  EXPECT_EQ(standin::ask(application, L"Presentations.Count").number(), 1);
}

TEST_F(StandInStartTest, UnregisterModeTakesTheRegistrationAway) {
  ASSERT_EQ(runToEnd(L"--register --progid=WPP.Application"), 0u);
  CLSID id;
  ASSERT_EQ(CLSIDFromProgID(L"WPP.Application", &id), S_OK);
  ASSERT_EQ(runToEnd(L"--unregister --progid=WPP.Application"), 0u);
  EXPECT_TRUE(FAILED(CLSIDFromProgID(L"WPP.Application", &id)));
}

TEST_F(StandInStartTest, AProgIdThatIsNotItsOwnIsRefused) {
  EXPECT_EQ(runToEnd(L"--register --progid=Other.Application"), 1u);
}

}  // namespace
}  // namespace mrl::standin

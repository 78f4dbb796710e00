#include "presentation/automation_access.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "presentation/automation_contract.h"
#include "presentation/presentation_fake.h"
#include "settings/path_rules.h"

namespace mrl {
namespace {

using Log = std::vector<std::string>;

class AutomationAccessTest : public testing::Test {
 protected:
  PresentationFake world;
  const PresentationAccess& access = world.access;
  std::shared_ptr<FakeApplication> application = world.automation.add(u"PowerPoint.Application");

  AutomationRef theShow(int32_t window) {
    application->addShow(application->addDeck(u"C:\\a.pptx"), window);
    return elementAt(access, getObject(access, application->object, u"SlideShowWindows"), 1);
  }
  std::u16string pathOf(const AutomationRef& show) {
    return getString(access, getObject(access, show, u"Presentation"), u"FullName");
  }
};

/// The member under test is the application's name.
struct AutomationContractPlace : PresentationFake {
  static constexpr char16_t kMember[] = u"Name";
  const std::shared_ptr<FakeApplication> application = automation.add(u"PowerPoint.Application");
  const AutomationRef owner = application->object;

  void holds(const AutomationValue& value) {
    automation.answers["application.Name"] = {kAutomationOk, value};
  }
  void fails(AutomationResult outcome) { automation.fail("application.Name", outcome); }
};
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, AutomationContract, AutomationContractPlace);

TEST_F(AutomationAccessTest, TheProvidersStandInTheirFixedOrder) {
  ASSERT_EQ(std::size(kProviders), 3u);
  EXPECT_EQ(kProviders[0], u"PowerPoint.Application");
  EXPECT_EQ(kProviders[1], u"KWPP.Application");
  EXPECT_EQ(kProviders[2], u"WPP.Application");
}

TEST_F(AutomationAccessTest, AMemberOfANullObjectFailsWithoutACall) {
  EXPECT_EQ(invokeMember(access, nullptr, u"Name", DispatchKind::Get),
            static_cast<int32_t>(0x80004003));
  EXPECT_TRUE(world.log.empty());
}

TEST_F(AutomationAccessTest, ACallHandsOnNameKindArgumentsAndResult) {
  application->addDeck(u"C:\\a.pptx");
  const AutomationRef decks = getObject(access, application->object, u"Presentations");
  world.log.clear();
  AutomationValue result;
  EXPECT_EQ(invokeMember(access, decks, u"Open", DispatchKind::Method, &result,
                         {std::u16string(u"C:\\b.pptx"), 0, 0, -1}),
            kAutomationOk);
  EXPECT_TRUE(std::holds_alternative<AutomationRef>(result));
  EXPECT_EQ(world.log, (Log{"method presentations.Open C:\\b.pptx 0 0 -1"}));
}

TEST_F(AutomationAccessTest, AnObjectThatIsGivenUpDuringItsOwnCallOutlivesIt) {
  AutomationRef decks = getObject(access, application->object, u"Presentations");
  AutomationRef shows = getObject(access, application->object, u"SlideShowWindows");
  const std::weak_ptr<AutomationObject> called = decks;
  const std::weak_ptr<AutomationObject> counted = shows;
  world.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "both presentations.Item 1") {
      decks = nullptr;
      EXPECT_FALSE(called.expired());
    } else {
      shows = nullptr;
      EXPECT_FALSE(counted.expired());
    }
  };
  application->addDeck(u"C:\\a.pptx");
  EXPECT_TRUE(elementAt(access, decks, 1));
  EXPECT_TRUE(called.expired());
  EXPECT_EQ(getInt(access, shows, u"Count"), 0);
  EXPECT_TRUE(counted.expired());
}

TEST_F(AutomationAccessTest, AFailedCallReturnsItsResult) {
  world.automation.fail("application.Name", static_cast<int32_t>(0x80010001));
  EXPECT_EQ(invokeMember(access, application->object, u"Name", DispatchKind::Get),
            static_cast<int32_t>(0x80010001));
}

TEST_F(AutomationAccessTest, AnUnknownMemberFails) {
  EXPECT_LT(invokeMember(access, application->object, u"NoSuchMember", DispatchKind::Get), 0);
}

TEST_F(AutomationAccessTest, GetObjectGivesTheObject) {
  EXPECT_TRUE(getObject(access, application->object, u"Presentations"));
  EXPECT_EQ(world.log, (Log{"get application.Presentations"}));
}

TEST_F(AutomationAccessTest, GetObjectIsNullOnFailure) {
  world.automation.fail("application.Presentations");
  EXPECT_FALSE(getObject(access, application->object, u"Presentations"));
}

TEST_F(AutomationAccessTest, GetObjectIsNullForAResultThatIsNoObject) {
  for (const AutomationValue& nonsense :
       {AutomationValue(), AutomationValue(5), AutomationValue(u"text"),
        AutomationValue(AutomationRef())}) {
    world.automation.answers["application.Presentations"] = {kAutomationOk, nonsense};
    EXPECT_FALSE(getObject(access, application->object, u"Presentations"));
  }
}

TEST_F(AutomationAccessTest, GetIntGivesTheNumber) {
  EXPECT_EQ(getInt(access, theShow(-77), u"HWND"), -77);
}

TEST_F(AutomationAccessTest, GetIntIsZeroOnFailure) {
  const AutomationRef show = theShow(77);
  world.automation.fail("show.HWND");
  EXPECT_EQ(getInt(access, show, u"HWND"), 0);
}

TEST_F(AutomationAccessTest, GetIntIsZeroForAResultThatIsNoNumber) {
  const AutomationRef show = theShow(77);
  world.automation.answers["show.HWND"] = {kAutomationOk, u"text"};
  EXPECT_EQ(getInt(access, show, u"HWND"), 0);
  world.automation.answers["show.HWND"] = {kAutomationOk, show};
  EXPECT_EQ(getInt(access, show, u"HWND"), 0);
}

TEST_F(AutomationAccessTest, GetIntTakesATextOfDigitsAndNothingAtAllForNumbers) {
  const AutomationRef show = theShow(77);
  world.automation.answers["show.HWND"] = {kAutomationOk, u"42"};
  EXPECT_EQ(getInt(access, show, u"HWND"), 42);
  world.automation.answers["show.HWND"] = {kAutomationOk, {}};
  EXPECT_EQ(getInt(access, show, u"HWND"), 0);
}

TEST_F(AutomationAccessTest, GetIntOfANullObjectIsZeroWithoutACall) {
  EXPECT_EQ(getInt(access, nullptr, u"Count"), 0);
  EXPECT_TRUE(world.log.empty());
}

TEST_F(AutomationAccessTest, GetStringGivesTheText) {
  EXPECT_EQ(getString(access, application->object, u"Name"), u"PowerPoint.Application");
}

TEST_F(AutomationAccessTest, GetStringIsEmptyOnFailure) {
  world.automation.fail("application.Name");
  EXPECT_EQ(getString(access, application->object, u"Name"), u"");
}

TEST_F(AutomationAccessTest, GetStringIsEmptyForAResultThatIsNoText) {
  for (const AutomationValue& nonsense :
       {AutomationValue(), AutomationValue(5), AutomationValue(application->object)}) {
    world.automation.answers["application.Name"] = {kAutomationOk, nonsense};
    EXPECT_EQ(getString(access, application->object, u"Name"), u"");
  }
}

TEST_F(AutomationAccessTest, AChainThroughAFailedPropertyEndsInNothingWithoutFurtherCalls) {
  world.automation.fail("application.ActiveWindow");
  const AutomationRef view =
      getObject(access, getObject(access, application->object, u"ActiveWindow"), u"View");
  EXPECT_FALSE(view);
  EXPECT_EQ(getInt(access, view, u"SlideIndex"), 0);
  EXPECT_EQ(getString(access, view, u"FullName"), u"");
  EXPECT_EQ(invokeMember(access, view, u"Next", DispatchKind::Method), kAutomationNullObject);
  EXPECT_EQ(world.log, (Log{"get application.ActiveWindow"}));
}

TEST_F(AutomationAccessTest, AnElementIsFetchedWithBothKindsAndItsIndex) {
  application->addDeck(u"C:\\a.pptx");
  application->addDeck(u"C:\\b.pptx");
  const AutomationRef decks = getObject(access, application->object, u"Presentations");
  world.log.clear();
  EXPECT_EQ(getString(access, elementAt(access, decks, 2), u"FullName"), u"C:\\b.pptx");
  EXPECT_EQ(world.log, (Log{"both presentations.Item 2", "get presentation.FullName"}));
}

TEST_F(AutomationAccessTest, ACountThatCanNotBeReadIsZero) {
  application->addDeck(u"C:\\a.pptx");
  const AutomationRef decks = getObject(access, application->object, u"Presentations");
  EXPECT_EQ(countElements(access, decks), 1);
  world.automation.fail("presentations.Count");
  EXPECT_EQ(countElements(access, decks), 0);
}

TEST_F(AutomationAccessTest, ANonsenseCountIsCutToWhatIsVisited) {
  const AutomationRef decks = getObject(access, application->object, u"Presentations");
  world.automation.answers["presentations.Count"] = {kAutomationOk, INT32_MAX};
  EXPECT_EQ(countElements(access, decks), kMaxElements);
}

// --- connectApplication ---

TEST_F(AutomationAccessTest, ALiveApplicationIsKeptAfterALookAtItsName) {
  world.state.application = application->object;
  world.state.progId = u"WPP.Application";
  EXPECT_TRUE(connectApplication(access, world.state));
  EXPECT_EQ(world.log, (Log{"get application.Name"}));
  EXPECT_EQ(world.state.application, application->object);
  EXPECT_EQ(world.state.progId, u"WPP.Application");
}

TEST_F(AutomationAccessTest, TheFirstProviderThatRunsIsConnected) {
  world.automation.add(u"KWPP.Application");
  EXPECT_TRUE(connectApplication(access, world.state));
  EXPECT_EQ(world.log, (Log{"running PowerPoint.Application"}));
  EXPECT_EQ(world.state.application, application->object);
  EXPECT_EQ(world.state.progId, u"PowerPoint.Application");
}

TEST_F(AutomationAccessTest, ProvidersAreTriedInTheFixedOrder) {
  application->runs = false;
  const auto last = world.automation.add(u"WPP.Application");
  EXPECT_TRUE(connectApplication(access, world.state));
  EXPECT_EQ(world.log, (Log{"running PowerPoint.Application", "running KWPP.Application",
                            "running WPP.Application"}));
  EXPECT_EQ(world.state.application, last->object);
  EXPECT_EQ(world.state.progId, u"WPP.Application");
}

TEST_F(AutomationAccessTest, ADeadReferenceGivesWayToTheFirstProviderThatAnswers) {
  application->dead = true;
  application->runs = false;
  world.state.application = application->object;
  world.state.progId = u"PowerPoint.Application";
  world.automation.add(u"WPP.Application");
  const auto second = world.automation.add(u"KWPP.Application");
  EXPECT_TRUE(connectApplication(access, world.state));
  EXPECT_EQ(world.state.application, second->object);
  EXPECT_EQ(world.state.progId, u"KWPP.Application");
}

TEST_F(AutomationAccessTest, WithNoProviderConnectingFailsAndClearsTheProgId) {
  application->runs = false;
  application->dead = true;
  world.state.application = application->object;
  world.state.progId = u"PowerPoint.Application";
  world.state.expectedDocument = world.state.lastDocument = u"C:\\a.pptx";
  world.state.lastProvider = u"PowerPoint.Application";
  EXPECT_FALSE(connectApplication(access, world.state));
  EXPECT_FALSE(world.state.application);
  EXPECT_EQ(world.state.progId, u"");
  EXPECT_EQ(world.state.expectedDocument, u"C:\\a.pptx");
  EXPECT_EQ(world.state.lastDocument, u"C:\\a.pptx");
  EXPECT_EQ(world.state.lastProvider, u"PowerPoint.Application");
}

TEST_F(AutomationAccessTest, ConnectingStartsNothing) {
  application->runs = false;
  application->startable = true;
  EXPECT_FALSE(connectApplication(access, world.state));
  EXPECT_EQ(std::count(world.log.begin(), world.log.end(), "start PowerPoint.Application"), 0);
}

TEST_F(AutomationAccessTest, AReplacedApplicationIsReleased) {
  AutomationRef dead = application->object;
  const std::weak_ptr<AutomationObject> watch = dead;
  world.state.application = std::move(dead);
  application->dead = true;
  application->runs = false;
  application->object = nullptr;
  EXPECT_FALSE(connectApplication(access, world.state));
  EXPECT_TRUE(watch.expired());
}

// --- findShowWindow ---

TEST_F(AutomationAccessTest, WithoutAShowThereIsNoShowWindow) {
  EXPECT_FALSE(findShowWindow(access, application->object, u""));
  EXPECT_EQ(world.log, (Log{"get application.SlideShowWindows", "get shows.Count"}));
}

TEST_F(AutomationAccessTest, WithoutACollectionThereIsNoShowWindow) {
  theShow(1);
  world.log.clear();
  world.automation.fail("application.SlideShowWindows");
  EXPECT_FALSE(findShowWindow(access, application->object, u""));
  EXPECT_EQ(world.log, (Log{"get application.SlideShowWindows"}));
}

TEST_F(AutomationAccessTest, ANegativeCountIsNoShowWindow) {
  theShow(1);
  world.automation.answers["shows.Count"] = {kAutomationOk, -1};
  EXPECT_FALSE(findShowWindow(access, application->object, u""));
}

TEST_F(AutomationAccessTest, NullHasNoShowWindow) {
  EXPECT_FALSE(findShowWindow(access, nullptr, u"C:\\a.pptx"));
  EXPECT_TRUE(world.log.empty());
}

TEST_F(AutomationAccessTest, WithNoExpectationTheFirstShowIsTakenAndNoneIsAskedForItsDocument) {
  application->addShow(application->addDeck(u"C:\\a.pptx"), 1);
  application->addShow(application->addDeck(u"C:\\b.pptx"), 2);
  const AutomationRef show = findShowWindow(access, application->object, u"");
  EXPECT_EQ(world.log,
            (Log{"get application.SlideShowWindows", "get shows.Count", "get shows.Count",
                 "both shows.Item 1", "get shows.Count", "both shows.Item 2", "get shows.Count"}));
  EXPECT_EQ(pathOf(show), u"C:\\a.pptx");
}

TEST_F(AutomationAccessTest, TheShowOfTheExpectedDocumentWinsAndEndsTheSearch) {
  application->addShow(application->addDeck(u"C:\\a.pptx"), 1);
  application->addShow(application->addDeck(u"C:\\b.pptx"), 2);
  application->addShow(application->addDeck(u"C:\\c.pptx"), 3);
  const AutomationRef show =
      findShowWindow(access, application->object, normalizePath(world.files, u"C:\\b.pptx"));
  EXPECT_EQ(world.log, (Log{"get application.SlideShowWindows", "get shows.Count",
                            "get shows.Count", "both shows.Item 1", "get show.Presentation",
                            "get presentation.FullName", "get shows.Count", "both shows.Item 2",
                            "get show.Presentation", "get presentation.FullName"}));
  EXPECT_EQ(pathOf(show), u"C:\\b.pptx");
}

TEST_F(AutomationAccessTest, WithNoneOfTheExpectedDocumentTheFirstShowIsTaken) {
  application->addShow(application->addDeck(u"C:\\a.pptx"), 1);
  application->addShow(application->addDeck(u"C:\\b.pptx"), 2);
  EXPECT_EQ(pathOf(findShowWindow(access, application->object, u"C:\\z.pptx")), u"C:\\a.pptx");
}

TEST_F(AutomationAccessTest, TheExpectedDocumentIsMetInAnotherCaseAndWithRelativeParts) {
  application->addShow(application->addDeck(u"C:/decks/other.pptx"), 1);
  application->addShow(application->addDeck(u"C:/decks/x/../A.PPTX"), 2);
  const AutomationRef show = findShowWindow(access, application->object, u"C:/decks/a.pptx");
  EXPECT_EQ(pathOf(show), u"C:/decks/x/../A.PPTX");
}

TEST_F(AutomationAccessTest, AShowWithoutADocumentNameIsNotTheExpectedOneButMayBeTheFirst) {
  application->addShow(application->addDeck(u""), 1);
  EXPECT_TRUE(findShowWindow(access, application->object, u"C:\\a.pptx"));
  application->addShow(application->addDeck(u"C:\\a.pptx"), 2);
  EXPECT_EQ(pathOf(findShowWindow(access, application->object, u"C:\\a.pptx")), u"C:\\a.pptx");
}

TEST_F(AutomationAccessTest, AnElementThatDoesNotComeBackIsNotTheDefault) {
  application->addShow(application->addDeck(u"C:\\a.pptx"), 1);
  application->addShow(application->addDeck(u"C:\\b.pptx"), 2);
  world.automation.fail("shows.Item");
  world.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "both shows.Item 2") world.automation.answers.clear();
  };
  EXPECT_EQ(pathOf(findShowWindow(access, application->object, u"")), u"C:\\b.pptx");
}

TEST_F(AutomationAccessTest, ACollectionThatShrinksDuringTheSearchEndsIt) {
  application->addShow(application->addDeck(u"C:\\a.pptx"), 1);
  application->addShow(application->addDeck(u"C:\\b.pptx"), 2);
  world.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "get presentation.FullName") application->shows.pop_back();
  };
  const AutomationRef show = findShowWindow(access, application->object, u"C:\\b.pptx");
  EXPECT_EQ(world.log.back(), "get shows.Count");
  EXPECT_EQ(std::count(world.log.begin(), world.log.end(), "both shows.Item 2"), 0);
  world.automation.beforeCall = nullptr;
  EXPECT_EQ(pathOf(show), u"C:\\a.pptx");
}

// --- showWindowHandle ---

TEST_F(AutomationAccessTest, TheHandleThatTheShowTellsIsTaken) {
  world.addShowWindow(77);
  EXPECT_EQ(showWindowHandle(access, theShow(77), u"C:\\a.pptx"), WindowHandle{77});
  EXPECT_EQ(world.windows.scans, 0);
}

TEST_F(AutomationAccessTest, AHandleOfZeroSendsTheSearchToTheDesktop) {
  world.addShowWindow(5, u"Slide Show - b.pptx");
  world.addShowWindow(6, u"Slide Show - a.pptx");
  world.addShowWindow(7, u"Slide Show - c.pptx");
  EXPECT_EQ(showWindowHandle(access, theShow(0), u"C:\\a.pptx"), WindowHandle{6});
}

TEST_F(AutomationAccessTest, AHandleThatIsNoWindowSendsTheSearchToTheDesktop) {
  world.addShowWindow(6, u"Slide Show - a.pptx");
  EXPECT_EQ(showWindowHandle(access, theShow(99), u"C:\\a.pptx"), WindowHandle{6});
}

TEST_F(AutomationAccessTest, AHandleThatCanNotBeReadSendsTheSearchToTheDesktop) {
  const AutomationRef show = theShow(77);
  world.addShowWindow(6, u"Slide Show - a.pptx");
  world.addShowWindow(77, u"Slide Show - b.pptx");
  world.automation.fail("show.HWND");
  EXPECT_EQ(showWindowHandle(access, show, u"C:\\a.pptx"), WindowHandle{6});
}

TEST_F(AutomationAccessTest, WithoutADocumentTheDesktopIsNotSearched) {
  world.addShowWindow(6, u"Slide Show - a.pptx");
  EXPECT_FALSE(showWindowHandle(access, theShow(0), u""));
  EXPECT_EQ(world.windows.scans, 0);
}

TEST_F(AutomationAccessTest, ADesktopWithoutTheShowGivesNoWindow) {
  world.addEditWindow(6, u"a.pptx");
  EXPECT_FALSE(showWindowHandle(access, theShow(0), u"C:\\a.pptx"));
  EXPECT_EQ(world.windows.scans, 1);
}

TEST_F(AutomationAccessTest, AHandleWithItsTopBitSetIsWidenedWithItsSign) {
  world.addShowWindow(-2147483644);
  EXPECT_EQ(showWindowHandle(access, theShow(-2147483644), u""), WindowHandle{-2147483644});
}

TEST_F(AutomationAccessTest, AHandleWithItsTopBitSetIsNotTheWindowOfTheUnsignedNumber) {
  world.addShowWindow(0x80000004);
  EXPECT_FALSE(showWindowHandle(access, theShow(static_cast<int32_t>(0x80000004)), u""));
}

}  // namespace
}  // namespace mrl

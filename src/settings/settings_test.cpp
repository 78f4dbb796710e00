#include "settings/settings.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

TEST(SettingsTest, EveryFieldHasItsDefault) {
  const Settings s;
  EXPECT_EQ(s.duration, 900U);
  EXPECT_TRUE(s.down);
  EXPECT_TRUE(s.autoMode);
  EXPECT_FALSE(s.perSlide);
  EXPECT_EQ(s.windowX, 300);
  EXPECT_EQ(s.windowY, 10);
  EXPECT_EQ(s.windowWidth, 183U);
  EXPECT_EQ(s.windowHeight, 82U);
  EXPECT_TRUE(s.blink);
  EXPECT_FALSE(s.sound);
  EXPECT_FALSE(s.black);
  EXPECT_FALSE(s.exitShow);
  EXPECT_FALSE(s.switchPpt);
  EXPECT_EQ(s.pptFolder, u"");
  EXPECT_EQ(s.switchDeck, u"");
  EXPECT_TRUE(s.skipList.empty());
  EXPECT_FALSE(s.hideNoDocument);
  EXPECT_FALSE(s.hideZero);
  EXPECT_FALSE(s.hideExcluded);
  EXPECT_FALSE(s.transparent);
  EXPECT_FALSE(s.machineTime);
  EXPECT_EQ(s.resetDelay, 0U);
  EXPECT_EQ(s.blinkSeconds, 0U);
  EXPECT_EQ(s.blinkOn, 500U);
  EXPECT_EQ(s.blinkOff, 500U);
  EXPECT_EQ(s.foreground, 0xFAFCFFU);
  EXPECT_EQ(s.background, 0x0080FFU);
  EXPECT_EQ(s.alert, 0xC0392BU);
  EXPECT_EQ(s.opacity, 80U);
  EXPECT_EQ(s.shape, 1U);
  EXPECT_EQ(s.fontWeight, 700U);
  EXPECT_EQ(s.fontName, u"Arial");
  EXPECT_EQ(s.soundFile, u"");
  EXPECT_EQ(s.soundSeconds, 0U);
  EXPECT_EQ(s.remotePort, 22222U);
  EXPECT_TRUE(s.remoteAutoStart);
}

TEST(SettingsTest, TheTwoStagesHaveDefaultsOfTheirOwn) {
  const Settings s;
  const PromptStage first = {false, true, true, false, 300, 10, 0, u""};
  const PromptStage second = {true, true, true, false, 30, 0, 0, u""};
  EXPECT_EQ(s.prompt1, first);
  EXPECT_EQ(s.prompt2, second);
}

TEST(SettingsTest, ACopySharesNothingWithItsOriginal) {
  Settings original;
  original.skipList = {u"C:\\x.pptx"};
  original.prompt1.soundFile = u"C:\\x.wav";
  Settings copy = original;
  EXPECT_EQ(copy, original);
  copy.skipList[0] = u"C:\\y.pptx";
  copy.prompt1.soundFile = u"C:\\y.wav";
  EXPECT_EQ(original.skipList[0], u"C:\\x.pptx");
  EXPECT_EQ(original.prompt1.soundFile, u"C:\\x.wav");
}

TEST(SettingsTest, BlackConflictsWithLeavingTheShowAndWithAnotherDeck) {
  for (const bool black : {false, true}) {
    for (const bool exitShow : {false, true}) {
      for (const bool switchPpt : {false, true}) {
        Settings s;
        s.black = black;
        s.exitShow = exitShow;
        s.switchPpt = switchPpt;
        EXPECT_EQ(hasBlackConflict(s), black && (exitShow || switchPpt))
            << black << exitShow << switchPpt;
      }
    }
  }
}

}  // namespace
}  // namespace mrl

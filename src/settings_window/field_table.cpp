#include "settings_window/field_table.h"

#include <algorithm>

namespace mrl {
namespace {

using enum FieldKind;

constexpr PromptStage Settings::*kStage1 = &Settings::prompt1;
constexpr PromptStage Settings::*kStage2 = &Settings::prompt2;

constexpr FlagField flag(bool Settings::*field) { return {.direct = field}; }
constexpr NumberField number(uint32_t Settings::*field) { return {.direct = field}; }
constexpr TextField text(std::u16string Settings::*field) { return {.direct = field}; }
constexpr FlagField flag(PromptStage Settings::*stage, bool PromptStage::*field) {
  return {.stage = stage, .ofStage = field};
}
constexpr NumberField number(PromptStage Settings::*stage, uint32_t PromptStage::*field) {
  return {.stage = stage, .ofStage = field};
}
constexpr TextField text(PromptStage Settings::*stage, std::u16string PromptStage::*field) {
  return {.stage = stage, .ofStage = field};
}

constexpr Field kFields[] = {
    {kMinutesBox, Time, number(&Settings::duration), kSecondsBox},
    {kDownRadio, DownRadio, flag(&Settings::down)},
    {kUpRadio, DownRadio, flag(&Settings::down)},
    {kPerSlideCheck, Flag, flag(&Settings::perSlide)},
    {kHideNoDocumentCheck, Flag, flag(&Settings::hideNoDocument)},
    {kHideZeroCheck, Flag, flag(&Settings::hideZero)},
    {kHideExcludedCheck, Flag, flag(&Settings::hideExcluded)},
    {kExitShowCheck, Flag, flag(&Settings::exitShow)},
    {kBlackCheck, Flag, flag(&Settings::black)},
    {kBlinkCheck, Flag, flag(&Settings::blink)},
    {kSoundCheck, Flag, flag(&Settings::sound)},
    {kSwitchCheck, Flag, flag(&Settings::switchPpt)},
    {kTransparentCheck, Flag, flag(&Settings::transparent)},
    {kMachineTimeCheck, Flag, flag(&Settings::machineTime)},
    {kAutoStartCheck, Flag, flag(&Settings::remoteAutoStart)},
    {kResetDelayBox, Number, number(&Settings::resetDelay)},
    {kBlinkSecondsBox, Number, number(&Settings::blinkSeconds)},
    {kSoundSecondsBox, Number, number(&Settings::soundSeconds)},
    {kPortBox, Number, number(&Settings::remotePort)},
    {kWidthBox, Number, number(&Settings::windowWidth)},
    {kHeightBox, Number, number(&Settings::windowHeight)},
    {kOpacityBox, Number, number(&Settings::opacity)},
    {kBlinkOnBox, Number, number(&Settings::blinkOn)},
    {kBlinkOffBox, Number, number(&Settings::blinkOff)},
    {kForegroundBox, Colour, number(&Settings::foreground)},
    {kBackgroundBox, Colour, number(&Settings::background)},
    {kAlertBox, Colour, number(&Settings::alert)},
    {kShapeCombo, ShapeRow, number(&Settings::shape)},
    {kFontWeightCombo, FontWeight, number(&Settings::fontWeight)},
    {kFontNameBox, FontName, text(&Settings::fontName)},
    {kFolderBox, Folder, text(&Settings::pptFolder)},
    {kSwitchDeckBox, File, text(&Settings::switchDeck)},
    {kSoundFileBox, File, text(&Settings::soundFile)},
    {kToggleExclusion, SkipList, std::monostate{}},

    {kFirstStage + kStageEnabled, Flag, flag(kStage1, &PromptStage::enabled)},
    {kFirstStage + kStageMinutes, Time, number(kStage1, &PromptStage::advance),
     kFirstStage + kStageSeconds},
    {kFirstStage + kStageBlinkWindow, Flag, flag(kStage1, &PromptStage::blinkWindow)},
    {kFirstStage + kStageBlinkBackground, Flag, flag(kStage1, &PromptStage::blinkBackground)},
    {kFirstStage + kStageSound, Flag, flag(kStage1, &PromptStage::sound)},
    {kFirstStage + kStageSoundFile, StageSound, text(kStage1, &PromptStage::soundFile)},
    {kFirstStage + kStageBlinkSeconds, Number, number(kStage1, &PromptStage::blinkSeconds)},
    {kFirstStage + kStageSoundSeconds, Number, number(kStage1, &PromptStage::soundSeconds)},

    {kSecondStage + kStageEnabled, Flag, flag(kStage2, &PromptStage::enabled)},
    {kSecondStage + kStageMinutes, Time, number(kStage2, &PromptStage::advance),
     kSecondStage + kStageSeconds},
    {kSecondStage + kStageBlinkWindow, Flag, flag(kStage2, &PromptStage::blinkWindow)},
    {kSecondStage + kStageBlinkBackground, Flag, flag(kStage2, &PromptStage::blinkBackground)},
    {kSecondStage + kStageSound, Flag, flag(kStage2, &PromptStage::sound)},
    {kSecondStage + kStageSoundFile, StageSound, text(kStage2, &PromptStage::soundFile)},
    {kSecondStage + kStageBlinkSeconds, Number, number(kStage2, &PromptStage::blinkSeconds)},
    {kSecondStage + kStageSoundSeconds, Number, number(kStage2, &PromptStage::soundSeconds)},
};

}  // namespace

std::span<const Field> allFields() { return kFields; }

const Field* findField(int id) {
  const auto* found = std::ranges::find(kFields, id, &Field::id);
  return found == std::end(kFields) ? nullptr : found;
}

Range rangeOf(const NumberField& field) {
  const auto boxRange = [](const auto& row) { return row.boxRange.value_or(row.range); };
  return field.stage ? boxRange(rowOf(kStageSettings, field.ofStage))
                     : boxRange(rowOf(kSettings, field.direct));
}

int queuedId(int id) {
  const auto* pair = std::ranges::find_if(
      kFields, [&](const Field& field) { return field.kind == Time && field.secondsId == id; });
  return pair == std::end(kFields) ? id : pair->id;
}

}  // namespace mrl

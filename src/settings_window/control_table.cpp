#include "settings_window/control_table.h"

#include <algorithm>

namespace mrl {
namespace {

using enum ControlKind;

constexpr const char16_t* kTabNames[] = {u"计时与动作", u"外观", u"预警", u"网络", u"PPT控制"};
constexpr const char16_t* kModes[] = {u"自动模式", u"手动模式"};
constexpr const char16_t* kPhases[] = {u"正常计时", u"预警亮起时", u"超时计时"};
constexpr const char16_t* kShapes[] = {u"直角矩形", u"圆角矩形", u"极简椭圆"};
constexpr const char16_t* kWeights[] = {u"细 (Light 300)", u"常规 (Normal 400)", u"粗 (Bold 700)",
                                        u"极粗 (Black 900)"};

constexpr Length kAll(Share::All);
constexpr Length kHalf(Share::Half);
constexpr Length kThird(Share::Third);
constexpr Length kFifth(Share::Fifth);
constexpr Length kStage(Share::Stage);
constexpr Length kSecond = kHalf + 64;  // where the second half begins
constexpr Length kRight = kAll - 8;     // where the content of a card ends

constexpr Control kControls[] = {
    {.id = kTabs, .kind = Tabs, .text = u"", .page = kNoPage, .rows = kTabNames},

    {kFirstSection, Section, u"计时与动作", kEveryPage},
    {kFirstSection + 1, Section, u"悬浮窗外观", kEveryPage},
    {kFirstSection + 2, Section, u"阶段提醒", kEveryPage},
    {kFirstSection + 3, Section, u"远程遥控", kEveryPage},
    {kFirstSection + 4, Section, u"PPT控制", kEveryPage},

    {kTimingTitle, Title, u"基础计时配置", 0, {40, 20, kAll - 48, 28}},
    {kDurationLabel, Caption, u"计时时长：", 0, {40, 62, 220, 20}},
    {kMinutesBox, NumberBox, u"", 0, {40, 88, 100, 56}, u"8"},
    {kMinutesLabel, Caption, u"分", 0, {148, 104, 28, 26}},
    {kSecondsBox, NumberBox, u"", 0, {188, 88, 100, 56}, u"0"},
    {kSecondsLabel, Caption, u"秒", 0, {296, 104, 28, 26}},
    {.id = kDownRadio,
     .kind = Radio,
     .text = u"倒计时",
     .page = 0,
     .place = {348, 96, 128, 42},
     .startsGroup = true},
    {kUpRadio, Radio, u"正计时", 0, {488, 96, 128, 42}},
    // Ends the group of the radio buttons.
    {.id = kHideNoDocumentCheck,
     .kind = Check,
     .text = u"无文档时自动隐藏",
     .page = 0,
     .place = {40, 168, kHalf, 34},
     .startsGroup = true},
    {kPerSlideCheck, Check, u"翻页后重新计时", 0, {kSecond, 168, kHalf, 34}},
    {kHideZeroCheck, Check, u"计时归零后自动隐藏", 0, {40, 214, kHalf, 34}},
    {kActionsTitle, Title, u"计时结束后动作", 0, {40, 308, kAll - 48, 28}},
    {kExpirySummary, Paragraph, u"", 0, {40, 348, kAll - 48, 38}},
    {kExitShowCheck, Check, u"退出当前放映", 0, {40, 396, kHalf, 34}},
    {kBlackCheck, Check, u"开启全屏黑屏", 0, {kSecond, 396, kHalf, 34}},
    {kBlinkCheck, Check, u"背景闪烁提醒", 0, {40, 444, kHalf, 34}},
    {kBlinkSecondsLabel, Caption, u"持续时间（秒，0 为持续）", 0, {kSecond, 436, kHalf - 88, 44}},
    {kBlinkSecondsBox, NumberBox, u"", 0, {kRight - 80, 440, 80, 38}},
    {kSoundCheck, Check, u"结束时播放提示音", 0, {40, 536, kHalf, 36}},
    {kSoundFileBox,
     TextBox,
     u"",
     0,
     {40, 592, kAll - 188, 40},
     u"选择提示音文件，留空使用系统提示音"},
    {kPickSoundButton, Button, u"选择音频", 0, {kRight - 124, 592, 124, 40}},
    {kSoundSecondsLabel, Caption, u"播放时长（秒，0 为完整）", 0, {kSecond, 532, kHalf - 88, 44}},
    {kSoundSecondsBox, NumberBox, u"", 0, {kRight - 80, 536, 80, 38}},
    {kSwitchCheck, Check, u"结束后播放指定文稿", 0, {40, 720, kAll - 48, 36}},
    {kSwitchDeckBox, TextBox, u"", 0, {40, 772, kAll - 188, 40}, u"选择计时结束后播放的演示文稿"},
    {kPickDeckButton, Button, u"选择文稿", 0, {kRight - 124, 772, 124, 40}},
    {kResetDelayLabel, Caption, u"关闭文稿后延迟重置（秒）", 0, {40, 834, kAll - 170, 30}},
    {kResetDelayBox, NumberBox, u"", 0, {kRight - 96, 830, 96, 38}},

    {kPreviewTitle, Title, u"实时样式预览", 1, {40, 20, kAll - 250, 28}},
    {kPreviewHint, Caption, u"1:1 原尺寸 · 拖动四角可调整大小", 1, {40, 53, kAll - 250, 20}},
    {.id = kPreviewPhaseCombo,
     .kind = Combo,
     .text = u"",
     .page = 1,
     .place = {kRight - 174, 24, 174, kDrop},
     .rows = kPhases},
    {kPreviewHost, PreviewHost, u"", 1, {40, 80, kAll - 48, 112}},
    {kPreview, Preview, u"1:1 预览", 1},
    {kSizeLabel, Caption, u"尺寸（宽 × 高）", 1, {40, 219, 130, 20}},
    {kWidthBox, NumberBox, u"", 1, {180, 210, 78, 38}},
    {kHeightBox, NumberBox, u"", 1, {270, 210, 78, 38}},
    {kDefaultSizeButton, Button, u"恢复默认", 1, {kRight - 120, 210, 120, 38}},
    {kColourTitle, Title, u"颜色与背景", 1, {40, 304, kAll - 48, 28}},
    {kFontTitle, Title, u"字体与显示", 1, {40, 576, kAll - 48, 28}},
    {kForegroundLabel, Caption, u"数字颜色", 1, {40, 352, kThird, 22}},
    {kForegroundBox, TextBox, u"", 1, {40, 382, kThird - 50, 40}},
    {kPickForegroundButton, Button, u"选色…", 1, {kThird - 2, 382, 42, 40}},
    {kBackgroundLabel, Caption, u"背景颜色", 1, {kThird + 52, 352, kThird, 22}},
    {kBackgroundBox, TextBox, u"", 1, {kThird + 52, 382, kThird - 50, 40}},
    {kPickBackgroundButton, Button, u"选色…", 1, {2 * kThird + 10, 382, 42, 40}},
    {kAlertLabel, Caption, u"警告闪烁颜色", 1, {2 * kThird + 64, 352, kThird, 22}},
    {kAlertBox, TextBox, u"", 1, {2 * kThird + 64, 382, kThird - 50, 40}},
    {kPickAlertButton, Button, u"选色…", 1, {3 * kThird + 22, 382, 42, 40}},
    {kOpacityLabel, Caption, u"背景不透明度（%）", 1, {40, 455, kHalf - 100, 20}},
    {kOpacityBox, NumberBox, u"", 1, {kHalf - 46, 446, 86, 38}},
    {kTransparentCheck, Check, u"纯文字模式", 1, {kSecond, 448, kHalf, 34}},
    {kShapeLabel, Caption, u"窗口形状", 1, {40, 717, 90, 20}},
    {.id = kShapeCombo,
     .kind = Combo,
     .text = u"",
     .page = 1,
     .place = {136, 708, kHalf - 96, kDrop},
     .rows = kShapes},
    {kFontNameLabel, Caption, u"字体", 1, {40, 624, kHalf, 22}},
    {kFontNameBox, TextBox, u"", 1, {40, 654, kHalf, 40}},
    {kFontWeightLabel, Caption, u"字体粗细", 1, {kSecond, 624, kHalf, 22}},
    {.id = kFontWeightCombo,
     .kind = Combo,
     .text = u"",
     .page = 1,
     .place = {kSecond, 654, kHalf, kDrop},
     .rows = kWeights},
    {kBlinkIntervalLabel, Caption, u"闪烁亮 / 暗间隔（毫秒）", 1, {40, 855, kRight - 240, 20}},
    {kBlinkOnBox, NumberBox, u"", 1, {kRight - 190, 846, 88, 38}},
    {kBlinkOffBox, NumberBox, u"", 1, {kRight - 88, 846, 88, 38}},
    {kMachineTimeCheck, Check, u"遥控器显示系统时钟", 1, {kSecond, 710, kHalf, 34}},

    {kFirstStageTitle, Title, u"第一阶段", 2, {24, 22, kStage - 150, 28, 1}},
    {kFirstStage + kStageEnabled, Check, u"启用", 2, {kStage - 120, 20, 96, 34, 1}},
    {kFirstStageAdvanceLabel, Caption, u"提前提醒（分钟 / 秒）", 2, {24, 70, kStage - 48, 24, 1}},
    {kFirstStage + kStageMinutes, NumberBox, u"", 2, {24, 100, 100, 40, 1}},
    {kFirstStage + kStageSeconds, NumberBox, u"", 2, {140, 100, 100, 40, 1}},
    {kFirstStage + kStageBlinkWindow, Check, u"悬浮窗闪烁", 2, {24, 156, kStage - 48, 34, 1}},
    {kFirstStage + kStageBlinkBackground,
     Check,
     u"悬浮窗背景颜色闪烁",
     2,
     {24, 196, kStage - 48, 34, 1}},
    {kFirstStage + kStageSound, Check, u"播放提示音", 2, {24, 236, kStage - 48, 34, 1}},
    {kFirstStage + kStageSoundFile,
     TextBox,
     u"",
     2,
     {24, 280, kStage - 150, 40, 1},
     u"选择音频文件"},
    {kFirstStage + kStagePickSound, Button, u"选择音频", 2, {kStage - 114, 280, 90, 40, 1}},
    {kFirstStageLengthLabel,
     Paragraph,
     u"闪烁 / 音频时长（秒）\n0 表示持续闪烁 / 完整播放",
     2,
     {24, 330, kStage - 48, 42, 1}},
    {kFirstStage + kStageBlinkSeconds, NumberBox, u"", 2, {24, 376, 100, 38, 1}},
    {kFirstStage + kStageSoundSeconds, NumberBox, u"", 2, {140, 376, 100, 38, 1}},

    {kSecondStageTitle, Title, u"第二阶段", 2, {24, 22, kStage - 150, 28, 2}},
    {kSecondStage + kStageEnabled, Check, u"启用", 2, {kStage - 120, 20, 96, 34, 2}},
    {kSecondStageAdvanceLabel, Caption, u"提前提醒（分钟 / 秒）", 2, {24, 70, kStage - 48, 24, 2}},
    {kSecondStage + kStageMinutes, NumberBox, u"", 2, {24, 100, 100, 40, 2}},
    {kSecondStage + kStageSeconds, NumberBox, u"", 2, {140, 100, 100, 40, 2}},
    {kSecondStage + kStageBlinkWindow, Check, u"悬浮窗闪烁", 2, {24, 156, kStage - 48, 34, 2}},
    {kSecondStage + kStageBlinkBackground,
     Check,
     u"悬浮窗背景颜色闪烁",
     2,
     {24, 196, kStage - 48, 34, 2}},
    {kSecondStage + kStageSound, Check, u"播放提示音", 2, {24, 236, kStage - 48, 34, 2}},
    {kSecondStage + kStageSoundFile,
     TextBox,
     u"",
     2,
     {24, 280, kStage - 150, 40, 2},
     u"选择音频文件"},
    {kSecondStage + kStagePickSound, Button, u"选择音频", 2, {kStage - 114, 280, 90, 40, 2}},
    {kSecondStageLengthLabel,
     Paragraph,
     u"闪烁 / 音频时长（秒）\n0 表示持续闪烁 / 完整播放",
     2,
     {24, 330, kStage - 48, 42, 2}},
    {kSecondStage + kStageBlinkSeconds, NumberBox, u"", 2, {24, 376, 100, 38, 2}},
    {kSecondStage + kStageSoundSeconds, NumberBox, u"", 2, {140, 376, 100, 38, 2}},

    {kServiceTitle, Title, u"连接与服务", 3, {40, 20, kAll - 48, 28}},
    {kQrCode, QrCode, u"连接二维码", 3, {40, 62, 156, 156}},
    {kAddressBox, AddressBox, u"", 3, {232, 62, kAll - 240, 50}},
    {kCopyAddressButton, Button, u"复制地址", 3, {232, 172, 120, 38}},
    {kOpenRemoteButton, Button, u"打开遥控器", 3, {364, 172, 132, 38}},
    {kServiceButton, Button, u"启动遥控服务", 3, {40, 346, 180, 38}},
    {kCheckNetworkButton, Button, u"检查与修复", 3, {232, 346, 150, 38}},
    {kServiceHint, Caption, u"扫码或输入电脑地址和端口即可连接。", 3, {232, 128, kAll - 240, 24}},
    {kPortLabel, Caption, u"网络端口（1024–65535）", 3, {40, 258, 300, 22}},
    {kPortBox, NumberBox, u"", 3, {40, 288, 120, 38}},
    {kApplyPortButton, Button, u"应用端口", 3, {172, 288, 112, 38}},
    {kAutoStartCheck, Check, u"启动程序时开启遥控服务", 3, {300, 290, kRight - 300, 34}},
    {kPortNote,
     Caption,
     u"应用端口会停止当前遥控服务；请重新启动并授权。",
     3,
     {40, 397, kAll - 48, 22}},

    {kFolderTitle, Title, u"演示文稿文件夹", 4, {40, 20, kAll - 48, 28}},
    {kFilesTitle, Title, u"文件夹中的 PPT", 4, {40, 208, kAll - 190, 28}},
    {kShowTitle, Title, u"放映控制", 4, {40, 608, kAll - 48, 28}},
    {kFolderBox, TextBox, u"", 4, {40, 70, kAll - 198, 40}, u"选择包含 PPT / WPS 文件的文件夹"},
    {kPickFolderButton, Button, u"选择文件夹", 4, {kRight - 134, 70, 134, 40}},
    {kReloadListButton, Button, u"刷新列表", 4, {kRight - 110, 204, 110, 38}},
    {kFileCount, Caption, u"", 4, {40, 126, kAll - 48, 24}},
    {kFileList, List, u"", 4, {40, 254, kAll - 48, 204}},
    {kHideExcludedCheck, Check, u"排除文件时隐藏悬浮窗", 4, {40, 474, kHalf, 34}},
    {kOpenFileButton, Button, u"打开文件", 4, {40, 526, 120, 34}},
    {kPlayFileButton, Button, u"放映文件", 4, {172, 526, 120, 34}},
    {kCloseFileButton, Button, u"关闭文件", 4, {304, 526, 120, 34}},
    {kBeginShowButton, Button, u"从头放映", 4, {40, 652, kFifth, 40}},
    {kCurrentSlideButton, Button, u"当前页放映", 4, {kFifth + 52, 652, kFifth, 40}},
    {kPreviousSlideButton, Button, u"上一页", 4, {2 * kFifth + 64, 652, kFifth, 40}},
    {kNextSlideButton, Button, u"下一页", 4, {3 * kFifth + 76, 652, kFifth, 40}},
    {kExitShowButton, Button, u"退出放映", 4, {4 * kFifth + 88, 652, kFifth, 40}},

    {kTimerLine, TimerLine, u"", kEveryPage},
    {kToggleButton, Button, u"开始 / 暂停", kEveryPage},
    {kResetButton, Button, u"重置并停止", kEveryPage},
    {.id = kModeCombo, .kind = Combo, .text = u"", .page = kEveryPage, .rows = kModes},
    {kStatusText, StatusLine, u"", kEveryPage},
    {kCloseButton, Button, u"关闭", kEveryPage},
};

constexpr Card kTimingCards[] = {{0, 264}, {288, 206}, {518, 160}, {702, 190}};
constexpr Card kLookCards[] = {{0, 260}, {284, 248}, {556, 244}, {824, 98}};
constexpr Card kRemoteCards[] = {{0, 430}};
constexpr Card kPresentationCards[] = {{0, 164}, {188, 376}, {588, 124}};
constexpr PageCards kPageCards[kPageCount] = {
    {kTimingCards, 916}, {kLookCards, 946}, {}, {kRemoteCards, 430}, {kPresentationCards, 736}};

constexpr SpokenName kSpokenNames[] = {
    {kMinutesBox, u"计时时长（分）"},
    {kSecondsBox, u"计时时长（秒）"},
    {kSoundFileBox, u"提示音文件"},
    {kSwitchDeckBox, u"计时结束后播放的演示文稿"},
    {kPreviewPhaseCombo, u"预览阶段"},
    {kWidthBox, u"宽度"},
    {kHeightBox, u"高度"},
    {kPickForegroundButton, u"选择数字颜色"},
    {kPickBackgroundButton, u"选择背景颜色"},
    {kPickAlertButton, u"选择警告闪烁颜色"},
    {kBlinkOnBox, u"闪烁亮间隔（毫秒）"},
    {kBlinkOffBox, u"闪烁暗间隔（毫秒）"},
    {kFirstStage + kStageEnabled, u"启用第一阶段"},
    {kFirstStage + kStageMinutes, u"第一阶段提前提醒（分钟）"},
    {kFirstStage + kStageSeconds, u"第一阶段提前提醒（秒）"},
    {kFirstStage + kStageSoundFile, u"第一阶段音频文件"},
    {kFirstStage + kStageBlinkSeconds, u"第一阶段闪烁时长（秒）"},
    {kFirstStage + kStageSoundSeconds, u"第一阶段音频时长（秒）"},
    {kSecondStage + kStageEnabled, u"启用第二阶段"},
    {kSecondStage + kStageMinutes, u"第二阶段提前提醒（分钟）"},
    {kSecondStage + kStageSeconds, u"第二阶段提前提醒（秒）"},
    {kSecondStage + kStageSoundFile, u"第二阶段音频文件"},
    {kSecondStage + kStageBlinkSeconds, u"第二阶段闪烁时长（秒）"},
    {kSecondStage + kStageSoundSeconds, u"第二阶段音频时长（秒）"},
    {kAddressBox, u"遥控地址"},
    {kFolderBox, u"演示文稿文件夹"},
    {kFileList, u"文件夹中的 PPT"},
    {kModeCombo, u"计时模式"},
};

// --- which control edits which setting ---

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

std::span<const SpokenName> spokenNames() { return kSpokenNames; }

std::optional<int> colourBoxOf(int id) {
  const auto* found = std::ranges::find(kColourPickers, id, &ColourPicker::id);
  if (found == std::end(kColourPickers)) return std::nullopt;
  return found->box;
}

const PageCards& cardsOf(int page) { return kPageCards[page]; }

std::span<const Control> allControls() { return kControls; }

const Control* findControl(int id) {
  const auto* found = std::ranges::find(kControls, id, &Control::id);
  return found == std::end(kControls) ? nullptr : found;
}

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

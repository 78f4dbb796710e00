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

constexpr Control kControls[] = {
    {.id = kTabs, .kind = Tabs, .text = u"", .page = kNoPage, .rows = kTabNames},

    {kFirstSection, Section, u"计时与动作", kEveryPage},
    {kFirstSection + 1, Section, u"悬浮窗外观", kEveryPage},
    {kFirstSection + 2, Section, u"阶段提醒", kEveryPage},
    {kFirstSection + 3, Section, u"远程遥控", kEveryPage},
    {kFirstSection + 4, Section, u"PPT控制", kEveryPage},

    {kTimingTitle, Title, u"基础计时配置", 0},
    {kDurationLabel, Caption, u"计时时长：", 0},
    {kMinutesBox, NumberBox, u"", 0, u"8"},
    {kMinutesLabel, Caption, u"分", 0},
    {kSecondsBox, NumberBox, u"", 0, u"0"},
    {kSecondsLabel, Caption, u"秒", 0},
    {.id = kDownRadio, .kind = Radio, .text = u"倒计时", .page = 0, .startsGroup = true},
    {kUpRadio, Radio, u"正计时", 0},
    // Ends the group of the radio buttons.
    {.id = kHideNoDocumentCheck,
     .kind = Check,
     .text = u"无文档时自动隐藏",
     .page = 0,
     .startsGroup = true},
    {kPerSlideCheck, Check, u"翻页后重新计时", 0},
    {kHideZeroCheck, Check, u"计时归零后自动隐藏", 0},
    {kActionsTitle, Title, u"计时结束后动作", 0},
    {kExpirySummary, Paragraph, u"", 0},
    {kExitShowCheck, Check, u"退出当前放映", 0},
    {kBlackCheck, Check, u"开启全屏黑屏", 0},
    {kBlinkCheck, Check, u"背景闪烁提醒", 0},
    {kBlinkSecondsLabel, Caption, u"持续时间（秒，0 为持续）", 0},
    {kBlinkSecondsBox, NumberBox, u"", 0},
    {kSoundCheck, Check, u"结束时播放提示音", 0},
    {kSoundFileBox, TextBox, u"", 0, u"选择提示音文件，留空使用系统提示音"},
    {kPickSoundButton, Button, u"选择音频", 0},
    {kSoundSecondsLabel, Caption, u"播放时长（秒，0 为完整）", 0},
    {kSoundSecondsBox, NumberBox, u"", 0},
    {kSwitchCheck, Check, u"结束后播放指定文稿", 0},
    {kSwitchDeckBox, TextBox, u"", 0, u"选择计时结束后播放的演示文稿"},
    {kPickDeckButton, Button, u"选择文稿", 0},
    {kResetDelayLabel, Caption, u"关闭文稿后延迟重置（秒）", 0},
    {kResetDelayBox, NumberBox, u"", 0},

    {kPreviewTitle, Title, u"实时样式预览", 1},
    {kPreviewHint, Caption, u"1:1 原尺寸 · 拖动四角可调整大小", 1},
    {.id = kPreviewPhaseCombo, .kind = Combo, .text = u"", .page = 1, .rows = kPhases},
    {kPreviewHost, PreviewHost, u"", 1},
    {kPreview, Preview, u"1:1 预览", 1},
    {kSizeLabel, Caption, u"尺寸（宽 × 高）", 1},
    {kWidthBox, NumberBox, u"", 1},
    {kHeightBox, NumberBox, u"", 1},
    {kDefaultSizeButton, Button, u"恢复默认", 1},
    {kColourTitle, Title, u"颜色与背景", 1},
    {kFontTitle, Title, u"字体与显示", 1},
    {kForegroundLabel, Caption, u"数字颜色", 1},
    {kForegroundBox, TextBox, u"", 1},
    {kPickForegroundButton, Button, u"选色…", 1},
    {kBackgroundLabel, Caption, u"背景颜色", 1},
    {kBackgroundBox, TextBox, u"", 1},
    {kPickBackgroundButton, Button, u"选色…", 1},
    {kAlertLabel, Caption, u"警告闪烁颜色", 1},
    {kAlertBox, TextBox, u"", 1},
    {kPickAlertButton, Button, u"选色…", 1},
    {kOpacityLabel, Caption, u"背景不透明度（%）", 1},
    {kOpacityBox, NumberBox, u"", 1},
    {kTransparentCheck, Check, u"纯文字模式", 1},
    {kShapeLabel, Caption, u"窗口形状", 1},
    {.id = kShapeCombo, .kind = Combo, .text = u"", .page = 1, .rows = kShapes},
    {kFontNameLabel, Caption, u"字体", 1},
    {kFontNameBox, TextBox, u"", 1},
    {kFontWeightLabel, Caption, u"字体粗细", 1},
    {.id = kFontWeightCombo, .kind = Combo, .text = u"", .page = 1, .rows = kWeights},
    {kBlinkIntervalLabel, Caption, u"闪烁亮 / 暗间隔（毫秒）", 1},
    {kBlinkOnBox, NumberBox, u"", 1},
    {kBlinkOffBox, NumberBox, u"", 1},
    {kMachineTimeCheck, Check, u"遥控器显示系统时钟", 1},

    {kFirstStageTitle, Title, u"第一阶段", 2},
    {kFirstStage + kStageEnabled, Check, u"启用", 2},
    {kFirstStageAdvanceLabel, Caption, u"提前提醒（分钟 / 秒）", 2},
    {kFirstStage + kStageMinutes, NumberBox, u"", 2},
    {kFirstStage + kStageSeconds, NumberBox, u"", 2},
    {kFirstStage + kStageBlinkWindow, Check, u"悬浮窗闪烁", 2},
    {kFirstStage + kStageBlinkBackground, Check, u"悬浮窗背景颜色闪烁", 2},
    {kFirstStage + kStageSound, Check, u"播放提示音", 2},
    {kFirstStage + kStageSoundFile, TextBox, u"", 2, u"选择音频文件"},
    {kFirstStage + kStagePickSound, Button, u"选择音频", 2},
    {kFirstStageLengthLabel, Paragraph, u"闪烁 / 音频时长（秒）\n0 表示持续闪烁 / 完整播放", 2},
    {kFirstStage + kStageBlinkSeconds, NumberBox, u"", 2},
    {kFirstStage + kStageSoundSeconds, NumberBox, u"", 2},

    {kSecondStageTitle, Title, u"第二阶段", 2},
    {kSecondStage + kStageEnabled, Check, u"启用", 2},
    {kSecondStageAdvanceLabel, Caption, u"提前提醒（分钟 / 秒）", 2},
    {kSecondStage + kStageMinutes, NumberBox, u"", 2},
    {kSecondStage + kStageSeconds, NumberBox, u"", 2},
    {kSecondStage + kStageBlinkWindow, Check, u"悬浮窗闪烁", 2},
    {kSecondStage + kStageBlinkBackground, Check, u"悬浮窗背景颜色闪烁", 2},
    {kSecondStage + kStageSound, Check, u"播放提示音", 2},
    {kSecondStage + kStageSoundFile, TextBox, u"", 2, u"选择音频文件"},
    {kSecondStage + kStagePickSound, Button, u"选择音频", 2},
    {kSecondStageLengthLabel, Paragraph, u"闪烁 / 音频时长（秒）\n0 表示持续闪烁 / 完整播放", 2},
    {kSecondStage + kStageBlinkSeconds, NumberBox, u"", 2},
    {kSecondStage + kStageSoundSeconds, NumberBox, u"", 2},

    {kServiceTitle, Title, u"连接与服务", 3},
    {kQrCode, QrCode, u"连接二维码", 3},
    {kAddressBox, AddressBox, u"", 3},
    {kCopyAddressButton, Button, u"复制地址", 3},
    {kOpenRemoteButton, Button, u"打开遥控器", 3},
    {kServiceButton, Button, u"启动遥控服务", 3},
    {kCheckNetworkButton, Button, u"检查与修复", 3},
    {kServiceHint, Caption, u"扫码或输入电脑地址和端口即可连接。", 3},
    {kPortLabel, Caption, u"网络端口（1024–65535）", 3},
    {kPortBox, NumberBox, u"", 3},
    {kApplyPortButton, Button, u"应用端口", 3},
    {kAutoStartCheck, Check, u"启动程序时开启遥控服务", 3},
    {kPortNote, Caption, u"应用端口会停止当前遥控服务；请重新启动并授权。", 3},

    {kFolderTitle, Title, u"演示文稿文件夹", 4},
    {kFilesTitle, Title, u"文件夹中的 PPT", 4},
    {kShowTitle, Title, u"放映控制", 4},
    {kFolderBox, TextBox, u"", 4, u"选择包含 PPT / WPS 文件的文件夹"},
    {kPickFolderButton, Button, u"选择文件夹", 4},
    {kReloadListButton, Button, u"刷新列表", 4},
    {kFileCount, Caption, u"", 4},
    {kFileList, List, u"", 4},
    {kHideExcludedCheck, Check, u"排除文件时隐藏悬浮窗", 4},
    {kOpenFileButton, Button, u"打开文件", 4},
    {kPlayFileButton, Button, u"放映文件", 4},
    {kCloseFileButton, Button, u"关闭文件", 4},
    {kBeginShowButton, Button, u"从头放映", 4},
    {kCurrentSlideButton, Button, u"当前页放映", 4},
    {kPreviousSlideButton, Button, u"上一页", 4},
    {kNextSlideButton, Button, u"下一页", 4},
    {kExitShowButton, Button, u"退出放映", 4},

    {kTimerLine, TimerLine, u"", kEveryPage},
    {kToggleButton, Button, u"开始 / 暂停", kEveryPage},
    {kResetButton, Button, u"重置并停止", kEveryPage},
    {.id = kModeCombo, .kind = Combo, .text = u"", .page = kEveryPage, .rows = kModes},
    {kStatusText, StatusLine, u"", kEveryPage},
    {kCloseButton, Button, u"关闭", kEveryPage},
};

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

}  // namespace

std::span<const SpokenName> spokenNames() { return kSpokenNames; }

std::optional<int> colourBoxOf(int id) {
  const auto* found = std::ranges::find(kColourPickers, id, &ColourPicker::id);
  if (found == std::end(kColourPickers)) return std::nullopt;
  return found->box;
}

std::span<const Control> allControls() { return kControls; }

const Control* findControl(int id) {
  const auto* found = std::ranges::find(kControls, id, &Control::id);
  return found == std::end(kControls) ? nullptr : found;
}

}  // namespace mrl

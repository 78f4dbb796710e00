// The ids of the settings window's controls. Tests and other programs find the controls by them.
#pragma once

namespace mrl {

enum ControlId : int {
  kContentPane = 0,  // no control: the pane that holds the pages
  kEnterKey = 1,     // no control: what a dialog sends for Enter and Escape
  kEscapeKey = 2,
  kApplyAll = 200,  // no control: applies all pending input

  // Frame.
  kCloseButton = 201,
  kStatusText = 226,
  kTabs = 240,
  kTimerLine = 277,
  kToggleButton = 278,
  kResetButton = 279,
  kModeCombo = 280,
  kFirstSection = 500,  // plus the page's index

  // Timing and actions.
  kDownRadio = 203,
  kPerSlideCheck = 205,
  kBlinkCheck = 206,
  kSoundCheck = 207,
  kBlackCheck = 208,
  kExitShowCheck = 209,
  kSwitchCheck = 210,
  kSwitchDeckBox = 224,
  kPickDeckButton = 225,
  kMinutesBox = 241,
  kSecondsBox = 242,
  kUpRadio = 243,
  kHideNoDocumentCheck = 244,
  kHideZeroCheck = 245,
  kResetDelayBox = 247,
  kBlinkSecondsBox = 248,
  kSoundFileBox = 252,
  kPickSoundButton = 253,
  kSoundSecondsBox = 254,
  kExpirySummary = 282,
  kTimingTitle = 600,
  kDurationLabel = 601,
  kMinutesLabel = 602,
  kSecondsLabel = 603,
  kActionsTitle = 604,
  kBlinkSecondsLabel = 605,
  kSoundSecondsLabel = 606,
  kResetDelayLabel = 607,

  // The clock's look.
  kPreview = 223,
  kWidthBox = 227,
  kHeightBox = 228,
  kDefaultSizeButton = 229,
  kPreviewPhaseCombo = 255,
  kForegroundBox = 256,
  kBackgroundBox = 257,
  kAlertBox = 258,
  kOpacityBox = 259,
  kTransparentCheck = 260,
  kShapeCombo = 261,
  kFontNameBox = 262,
  kFontWeightCombo = 263,
  kBlinkOnBox = 264,
  kBlinkOffBox = 265,
  kMachineTimeCheck = 266,
  kPickForegroundButton = 267,
  kPickBackgroundButton = 268,
  kPickAlertButton = 269,
  kPreviewTitle = 610,
  kPreviewHost = 611,
  kSizeLabel = 612,
  kForegroundLabel = 613,
  kBackgroundLabel = 614,
  kAlertLabel = 615,
  kOpacityLabel = 616,
  kShapeLabel = 617,
  kFontNameLabel = 618,
  kFontWeightLabel = 619,
  kBlinkIntervalLabel = 620,
  kPreviewHint = 651,
  kColourTitle = 652,
  kFontTitle = 653,

  // The two stages; the ids of their other controls start at kStageBases.
  kFirstStageTitle = 630,
  kFirstStageAdvanceLabel = 631,
  kFirstStageLengthLabel = 632,
  kSecondStageTitle = 633,
  kSecondStageAdvanceLabel = 634,
  kSecondStageLengthLabel = 635,

  // The remote service.
  kOpenRemoteButton = 110,
  kServiceButton = 221,
  kAddressBox = 222,
  kPortBox = 270,
  kAutoStartCheck = 271,
  kCopyAddressButton = 272,
  kQrCode = 283,
  kCheckNetworkButton = 511,
  kApplyPortButton = 512,
  kServiceTitle = 640,
  kServiceHint = 641,
  kPortLabel = 642,
  kPortNote = 643,

  // The presentations.
  kFolderBox = 211,
  kPickFolderButton = 212,
  kFileList = 213,
  kToggleExclusion = 214,  // no control: what the list sends for its switch
  kPlayFileButton = 215,
  kBeginShowButton = 216,
  kCurrentSlideButton = 217,
  kPreviousSlideButton = 218,
  kNextSlideButton = 219,
  kExitShowButton = 220,
  kHideExcludedCheck = 246,
  kReloadListButton = 273,
  kOpenFileButton = 274,
  kCloseFileButton = 275,
  kFileCount = 281,
  kFolderTitle = 650,
  kFilesTitle = 655,
  kShowTitle = 656,
};

/// First ids of the two stages' controls; a control's id is this base plus its StageControl offset.
inline constexpr int kFirstStage = 400;
inline constexpr int kSecondStage = 420;
inline constexpr int kStageBases[] = {kFirstStage, kSecondStage};

enum StageControl : int {
  kStageEnabled = 0,
  kStageMinutes = 1,
  kStageSeconds = 2,
  kStageBlinkWindow = 3,
  kStageBlinkBackground = 4,
  kStageSound = 5,
  kStageSoundFile = 6,
  kStagePickSound = 7,
  kStageBlinkSeconds = 8,
  kStageSoundSeconds = 9,
};

}  // namespace mrl

// The one persistent record: everything that a user can configure, and one table of where each
// setting stands in the file and in the remote form, and of what it may be there. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace mrl {

/// A stage: one of the two alerts before the end of the time.
struct PromptStage {
  bool enabled = false;
  bool blinkWindow = true;
  bool blinkBackground = true;
  bool sound = false;
  uint32_t advance = 0;       // seconds before the end
  uint32_t blinkSeconds = 0;  // 0: until something stops it
  uint32_t soundSeconds = 0;  // 0: the whole sound
  std::u16string soundFile = {};

  bool operator==(const PromptStage&) const = default;
};

/// A plain value. Colours are 0xRRGGBB; durations are seconds unless named otherwise. Every change
/// goes the same way: copy the live record, change the copy, save it, and make it the live record
/// only if the save succeeded.
struct Settings {
  uint32_t duration = 900;
  bool down = true;
  bool autoMode = true;
  bool perSlide = false;
  int32_t windowX = 300;  // screen pixels
  int32_t windowY = 10;
  uint32_t windowWidth = 183;  // units of 1/96 inch
  uint32_t windowHeight = 82;
  bool blink = true;
  bool sound = false;
  bool black = false;
  bool exitShow = false;
  bool switchPpt = false;
  std::u16string pptFolder;
  std::u16string switchDeck;
  std::vector<std::u16string> skipList;  // normalised paths, in order of insertion
  bool hideNoDocument = false;
  bool hideZero = false;
  bool hideExcluded = false;
  bool transparent = false;
  bool machineTime = false;
  uint32_t resetDelay = 0;
  uint32_t blinkSeconds = 0;
  uint32_t blinkOn = 500;  // milliseconds
  uint32_t blinkOff = 500;
  uint32_t foreground = 0xFAFCFF;
  uint32_t background = 0x0080FF;
  uint32_t alert = 0xC0392B;
  uint32_t opacity = 80;  // percent
  uint32_t shape = 1;     // 0 rectangle, 1 rounded, 2 ellipse
  uint32_t fontWeight = 700;
  std::u16string fontName = u"Arial";
  std::u16string soundFile;
  uint32_t soundSeconds = 0;
  uint32_t remotePort = 22222;
  bool remoteAutoStart = true;
  PromptStage prompt1{.advance = 300, .blinkSeconds = 10};
  PromptStage prompt2{.enabled = true, .advance = 30};

  bool operator==(const Settings&) const = default;
};

/// Whether the black screen is combined with exiting the show or switching decks, which it
/// excludes.
bool hasBlackConflict(const Settings& settings);

/// Both ends are in it.
struct Range {
  uint32_t lowest = 0;
  uint32_t highest = 0;
};

/// A switch or number of the remote form.
struct RemoteKey {
  size_t place = 0;            // in the form's order, in which its values are sent and hashed
  const char* name = nullptr;  // null: not in the form
};

/// The row of one member of Settings or of PromptStage.
template <class Record>
struct Setting {
  using Member =
      std::variant<bool Record::*, uint32_t Record::*, int32_t Record::*, std::u16string Record::*>;
  Member member;
  bool newLine = false;          // begins a line of the file
  Range range = {};              // of a uint32_t, wherever no other is stated
  bool uncheckedInFile = false;  // the file's number is taken as it is
  RemoteKey remote = {};
  std::optional<Range> remoteRange = {};  // if the remote form has another
  std::optional<Range> boxRange = {};     // if its number box in the settings window has another
};

inline constexpr int32_t kMaxDurationSeconds = 59999;  // the longest a client may set: 999:59
inline constexpr Range kRemoteDuration = {0, kMaxDurationSeconds};
inline constexpr Range kFileDuration = {0, 604800};  // a week
inline constexpr Range kEffectSeconds = {0, 3600};
inline constexpr Range kBlinkMs = {50, 10000};
inline constexpr Range kColours = {0, 0xFFFFFF};

/// In the order of the file. Without a row are the skip list, which the file has before
/// hideNoDocument, and the two stages at its end, which have a table of their own.
inline constexpr Setting<Settings> kSettings[] = {
    {.member = &Settings::duration,
     .newLine = true,
     .range = kFileDuration,
     .remote = {0, "duration"},
     .remoteRange = kRemoteDuration},
    {.member = &Settings::down, .remote = {1, "down"}},
    {.member = &Settings::autoMode},
    {.member = &Settings::perSlide, .remote = {2, "perSlide"}},
    {.member = &Settings::windowX, .newLine = true},
    {.member = &Settings::windowY},
    {.member = &Settings::windowWidth, .range = {90, 1600}, .boxRange = Range{120, 1200}},
    {.member = &Settings::windowHeight, .range = {40, 1000}, .boxRange = Range{50, 600}},
    {.member = &Settings::blink, .newLine = true, .remote = {9, "blink"}},
    {.member = &Settings::sound, .remote = {11, "sound"}},
    {.member = &Settings::black, .remote = {8, "black"}},
    {.member = &Settings::exitShow, .remote = {7, "exitShow"}},
    {.member = &Settings::switchPpt, .remote = {13, "switchPpt"}},
    {.member = &Settings::pptFolder, .newLine = true},
    {.member = &Settings::switchDeck, .newLine = true},
    {.member = &Settings::hideNoDocument, .newLine = true, .remote = {3, "hideNoDocument"}},
    {.member = &Settings::hideZero, .remote = {4, "hideZero"}},
    {.member = &Settings::hideExcluded, .remote = {5, "hideExcluded"}},
    {.member = &Settings::transparent, .remote = {18, "transparent"}},
    {.member = &Settings::machineTime, .remote = {23, "machineTime"}},
    {.member = &Settings::resetDelay,
     .newLine = true,
     .range = kEffectSeconds,
     .remote = {6, "resetDelay"}},
    {.member = &Settings::blinkSeconds, .range = kEffectSeconds, .remote = {10, "blinkSeconds"}},
    {.member = &Settings::blinkOn, .range = kBlinkMs, .remote = {21, "blinkOn"}},
    {.member = &Settings::blinkOff, .range = kBlinkMs, .remote = {22, "blinkOff"}},
    {.member = &Settings::foreground,
     .newLine = true,
     .range = kColours,
     .remote = {14, "foreground"}},
    {.member = &Settings::background, .range = kColours, .remote = {15, "background"}},
    {.member = &Settings::alert, .range = kColours, .remote = {16, "alert"}},
    {.member = &Settings::opacity, .range = {10, 100}, .remote = {17, "opacity"}},
    {.member = &Settings::shape, .range = {0, 2}, .remote = {19, "shape"}},
    {.member = &Settings::fontWeight, .range = {100, 999}, .remote = {20, "fontWeight"}},
    {.member = &Settings::fontName, .newLine = true},
    {.member = &Settings::soundFile, .newLine = true},
    {.member = &Settings::soundSeconds,
     .newLine = true,
     .range = kEffectSeconds,
     .uncheckedInFile = true,
     .remote = {12, "soundSeconds"}},
    {.member = &Settings::remotePort, .range = {1024, 65535}},
    {.member = &Settings::remoteAutoStart},
};

/// The same of one stage. In the remote form the names have a prefix, and the stages follow the
/// rest.
inline constexpr Setting<PromptStage> kStageSettings[] = {
    {.member = &PromptStage::enabled, .newLine = true, .remote = {0, "enabled"}},
    {.member = &PromptStage::blinkWindow, .remote = {2, "blinkWindow"}},
    {.member = &PromptStage::blinkBackground, .remote = {3, "blinkBackground"}},
    {.member = &PromptStage::sound, .remote = {4, "sound"}},
    {.member = &PromptStage::advance,
     .range = kFileDuration,
     .remote = {1, "advance"},
     .remoteRange = kRemoteDuration},
    {.member = &PromptStage::blinkSeconds, .range = kEffectSeconds, .remote = {5, "blinkSeconds"}},
    {.member = &PromptStage::soundSeconds, .range = kEffectSeconds, .remote = {6, "soundSeconds"}},
    {.member = &PromptStage::soundFile},
};

/// The row of a member. REQUIRES: it has one.
template <class Record, size_t kCount>
constexpr const Setting<Record>& rowOf(const Setting<Record> (&rows)[kCount],
                                       typename Setting<Record>::Member member) {
  size_t i = 0;
  while (rows[i].member != member) ++i;
  return rows[i];
}

}  // namespace mrl

// The one persistent record: everything that a user can configure.
#pragma once

#include <cstdint>
#include <string>
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

/// A plain value. The fields are in the order of the file. Colours are 0xRRGGBB; durations are
/// seconds unless named otherwise. Every change goes the same way: copy the live record, change the
/// copy, save it, and make it the live record only if the save succeeded.
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

}  // namespace mrl

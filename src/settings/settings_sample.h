// Sample records for tests, and the ranges of a loadable record, stated independently of the
// reader's own tables.
#pragma once

#include <string>

#include "settings/settings.h"

namespace mrl {

/// Every field but `black`, which excludes others, differs from its default, and every kind of
/// character that needs care occurs.
inline Settings fullRecord() {
  Settings s;
  s.duration = 604800;
  s.down = false;
  s.autoMode = false;
  s.perSlide = true;
  s.windowX = -1200;
  s.windowY = -7;
  s.windowWidth = 1600;
  s.windowHeight = 1000;
  s.blink = false;
  s.sound = true;
  s.black = false;
  s.exitShow = true;
  s.switchPpt = true;
  s.pptFolder = u"C:\\演示 文稿";
  s.switchDeck = u"\\\\server\\share\\😀.pptx";
  s.skipList = {u"C:\\a \"b\"\\c.pptx", u"", u"two\nlines.pptx"};
  s.hideNoDocument = true;
  s.hideZero = true;
  s.hideExcluded = true;
  s.transparent = true;
  s.machineTime = true;
  s.resetDelay = 3600;
  s.blinkSeconds = 3599;
  s.blinkOn = 50;
  s.blinkOff = 10000;
  s.foreground = 0xFFFFFF;
  s.background = 0x000001;
  s.alert = 0x123456;
  s.opacity = 10;
  s.shape = 2;
  s.fontWeight = 999;
  s.fontName = u"微软雅黑";
  s.soundFile = u"C:\\end.wav";
  s.soundSeconds = 100000;
  s.remotePort = 65535;
  s.remoteAutoStart = false;
  s.prompt1 = {true, false, false, true, 604800, 3600, 3598, u"C:\\one.wav"};
  s.prompt2 = {false, false, false, true, 1, 2, 3, u"C:\\two.wav"};
  return s;
}

inline bool isBetween(uint32_t value, uint32_t low, uint32_t high) {
  return value >= low && value <= high;
}

inline bool isLoadable(const PromptStage& stage) {
  return stage.advance <= 604800 && stage.blinkSeconds <= 3600 && stage.soundSeconds <= 3600;
}

/// Whether a file can load as this record.
inline bool isLoadable(const Settings& s) {
  return s.duration <= 604800 && isBetween(s.windowWidth, 90, 1600) &&
         isBetween(s.windowHeight, 40, 1000) && s.skipList.size() <= 10000 &&
         s.resetDelay <= 3600 && s.blinkSeconds <= 3600 && isBetween(s.blinkOn, 50, 10000) &&
         isBetween(s.blinkOff, 50, 10000) && s.foreground <= 0xFFFFFF && s.background <= 0xFFFFFF &&
         s.alert <= 0xFFFFFF && isBetween(s.opacity, 10, 100) && s.shape <= 2 &&
         isBetween(s.fontWeight, 100, 999) && isBetween(s.remotePort, 1024, 65535) &&
         isLoadable(s.prompt1) && isLoadable(s.prompt2) &&
         !(s.black && (s.exitShow || s.switchPpt));
}

}  // namespace mrl

// The colours of the settings window, 0xRRGGBB.
#pragma once

#include <cstdint>

namespace mrl {

inline constexpr uint32_t kWhite = 0xFFFFFF;
inline constexpr uint32_t kInk = 0x1E2B42;    // primary text
inline constexpr uint32_t kMuted = 0x707E94;  // secondary text, disabled text in boxes
inline constexpr uint32_t kAccent = 0x226BFA;
inline constexpr uint32_t kAccentHover = 0x195CE7;
inline constexpr uint32_t kAccentDown = 0x1650CB;
inline constexpr uint32_t kSelectFill = 0xE8F1FF;
inline constexpr uint32_t kPageFill = 0xF5F7FB;
inline constexpr uint32_t kReadOnlyFill = 0xF6F8FC;
inline constexpr uint32_t kHairline = 0xDCE3ED;
inline constexpr uint32_t kCardLine = 0xE6EBF3;
inline constexpr uint32_t kWarnText = 0xA06812;     // the status line while input waits
inline constexpr uint32_t kInvalidLine = 0xCC424A;  // around an invalid box
inline constexpr uint32_t kExcludedText = 0xA87426;
inline constexpr uint32_t kHostDark = 0x273346;  // behind a preview of text alone
inline constexpr uint32_t kHostLight = 0xEEF3F9;

}  // namespace mrl

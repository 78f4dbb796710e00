// What one poll of the presentation layer reports.
#pragma once

#include <cstdint>
#include <string>

#include "base/window_handle.h"

namespace mrl {

/// What is known of the document that was last shown.
enum class DocumentState : uint32_t { Unknown = 0, Open = 1, Closed = 2 };

/// A value: the poll returns a fresh one and the caller owns it.
struct ShowStatus {
  bool running = false;            // a slide show is on screen
  bool presentationsOpen = false;  // some presentation is known to be open
  int32_t slide = 0;               // 1-based; 0 when no number is known
  WindowHandle window;             // of the show
  std::u16string documentPath;     // as the application tells it
  std::u16string normalizedPath;   // the same, normalised
  std::u16string provider;         // the ProgID that reported the show, or kNativeProvider
  std::u16string windowTitle;      // native path only
  DocumentState documentState = DocumentState::Unknown;  // a running show reports Open

  bool operator==(const ShowStatus&) const = default;
};

inline constexpr char16_t kNativeProvider[] = u"原生窗口检测";

}  // namespace mrl

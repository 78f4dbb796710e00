// The result of one status poll.
#pragma once

#include <cstdint>
#include <string>

#include "base/window_handle.h"

namespace mrl {

/// Whether the document that was last shown is still open.
enum class DocumentState : uint32_t { Unknown = 0, Open = 1, Closed = 2 };

/// A plain value, owned by the caller.
struct ShowStatus {
  bool running = false;            // a slide show is on screen
  bool presentationsOpen = false;  // some presentation is known to be open
  int32_t slide = 0;               // 1-based; 0 when no number is known
  WindowHandle window;             // of the show
  std::u16string documentPath;     // as reported by the application
  std::u16string normalizedPath;   // the same, normalised
  std::u16string provider;         // the ProgID that reported the show, or kNativeProvider
  std::u16string windowTitle;      // set only by the desktop scan
  DocumentState documentState = DocumentState::Unknown;  // a running show reports Open

  bool operator==(const ShowStatus&) const = default;
};

inline constexpr char16_t kNativeProvider[] = u"原生窗口检测";

}  // namespace mrl

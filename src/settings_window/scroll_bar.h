// What a scroll bar tells the program and is told: plain values, any thread.
#pragma once

namespace mrl {

/// The state of a scroll bar whose range begins at 0.
struct ScrollInfo {
  int last = 0;  // the end of the range
  int page = 0;
  int position = 0;
  int track = 0;  // where the thumb is being dragged; read only
  bool operator==(const ScrollInfo&) const = default;
};

/// A scroll bar's requests, with the system's values.
enum class ScrollStep {
  LineBack,
  LineForward,
  PageBack,
  PageForward,
  Drop,  // the thumb was released after a drag
  Track,
  Start,
  End,
};

}  // namespace mrl

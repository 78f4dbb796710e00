// Opens things in the user's desktop shell.
#pragma once

#include <string>

namespace mrl {

/// UI thread only.
class Shell {
 public:
  virtual ~Shell() = default;
  /// Opens an address or a document with the user's program for it, which starts in `folder` or, if
  /// that is empty, in this program's own folder. Does not wait for that program. False when the
  /// system refuses.
  [[nodiscard]] virtual bool open(const std::u16string& target, const std::u16string& folder) = 0;
};

}  // namespace mrl

// Hands something over to the user's desktop.
#pragma once

#include <string>

namespace mrl {

/// UI thread only.
class Shell {
 public:
  virtual ~Shell() = default;
  /// Opens an address or a document with the program that the user has for it, which starts in
  /// `folder`, or in this program's own folder where that is empty. False when the system refuses.
  /// Does not wait for that program.
  [[nodiscard]] virtual bool open(const std::u16string& target, const std::u16string& folder) = 0;
};

}  // namespace mrl

#include "base/wide_win.h"

namespace mrl {

std::wstring wideFrom(std::u16string_view text) { return {text.begin(), text.end()}; }

std::u16string u16From(std::wstring_view text) { return {text.begin(), text.end()}; }

}  // namespace mrl

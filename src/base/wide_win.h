// Text on its way to Windows and back: the one place where char16_t and wchar_t meet.
#pragma once

#include <string>
#include <string_view>

namespace mrl {

std::wstring wideFrom(std::u16string_view text);
std::u16string u16From(std::wstring_view text);

}  // namespace mrl

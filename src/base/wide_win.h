// Converts text between char16_t and the wchar_t of Windows. Nothing else does.
#pragma once

#include <string>
#include <string_view>

namespace mrl {

std::wstring wideFrom(std::u16string_view text);
std::u16string u16From(std::wstring_view text);

}  // namespace mrl

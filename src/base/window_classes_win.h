// The window classes of the program, which all share one window procedure.
#pragma once

#include <windows.h>

namespace mrl {

inline constexpr wchar_t kTimerClass[] = L"Marlune.Native.Timer";
inline constexpr wchar_t kSettingsClass[] = L"Marlune.Native.Settings";
inline constexpr wchar_t kContentClass[] = L"Marlune.Native.Content";
inline constexpr wchar_t kPreviewClass[] = L"Marlune.Native.Preview";
inline constexpr wchar_t kPreviewHostClass[] = L"Marlune.Native.PreviewHost";
inline constexpr wchar_t kResizeClass[] = L"Marlune.Native.Resize";
inline constexpr wchar_t kQrClass[] = L"Marlune.Native.QR";
inline constexpr wchar_t kBlackClass[] = L"Marlune.Native.Black";

/// Registers all eight. Every window of them must be created with a pointer as its creation
/// parameter, which `procedure` stores.
void registerWindowClasses(HINSTANCE instance, WNDPROC procedure);

/// Whether the window is of that class, one of ours or of the system's. Case does not matter.
bool isWindowClass(HWND window, const wchar_t* name);

}  // namespace mrl

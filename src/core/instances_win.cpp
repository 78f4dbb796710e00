#include "core/instances_win.h"

#include <sddl.h>

#include <cstddef>
#include <string>

#include "base/command_ids.h"
#include "base/geometry_win.h"
#include "base/kernel_handle_win.h"
#include "base/wide_win.h"
#include "base/window_classes_win.h"

namespace mrl {
namespace {

constexpr wchar_t kFirstProperty[] = L"Marlune.First";
constexpr UINT kAnswerMs = 2000;

std::u16string userOf(HANDLE token) {
  alignas(TOKEN_USER) std::byte buffer[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE];
  DWORD size = 0;
  if (!GetTokenInformation(token, TokenUser, buffer, sizeof buffer, &size)) return {};
  wchar_t* text = nullptr;
  if (!ConvertSidToStringSidW(reinterpret_cast<const TOKEN_USER*>(buffer)->User.Sid, &text)) {
    return {};
  }
  const std::u16string user = u16From(text);
  LocalFree(text);
  return user;
}

bool isElevated(HANDLE token) {
  TOKEN_ELEVATION elevation{};
  DWORD size = 0;
  return GetTokenInformation(token, TokenElevation, &elevation, sizeof elevation, &size) &&
         elevation.TokenIsElevated != 0;
}

Account accountOf(HANDLE process) {
  KernelHandle token;
  if (!OpenProcessToken(process, TOKEN_QUERY, token.put())) return {};
  return {userOf(token.get()), isElevated(token.get())};
}

DWORD processOf(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process;
}

BOOL CALLBACK addClock(HWND window, LPARAM list) {
  wchar_t name[80]{};
  GetClassNameW(window, name, 80);
  const DWORD owner = processOf(window);
  if (std::wstring_view(name) != kTimerClass || owner == GetCurrentProcessId()) return TRUE;
  const KernelHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, owner));
  reinterpret_cast<std::vector<OtherClock>*>(list)->push_back(
      {handleFrom(window), GetPropW(window, kFirstProperty) != nullptr,
       process ? accountOf(process.get()) : Account{}});
  return TRUE;
}

}  // namespace

bool InstancesWin::claim(uint32_t waitMs) {
  // Local to the session: the user could not see the settings of an instance in another session.
  const std::wstring name = L"Local\\Marlune.Native." + wideFrom(own().user);
  if (!place) place.reset(CreateMutexW(nullptr, FALSE, name.c_str()));
  if (!place) return false;
  const DWORD result = WaitForSingleObject(place.get(), waitMs);
  return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;  // abandoned: its owner was killed
}

void InstancesWin::announce(WindowHandle clock) {
  SetPropW(windowFrom(clock), kFirstProperty, reinterpret_cast<HANDLE>(1));
}

Account InstancesWin::own() { return accountOf(GetCurrentProcess()); }

std::vector<OtherClock> InstancesWin::others() {
  std::vector<OtherClock> clocks;
  EnumWindows(addClock, reinterpret_cast<LPARAM>(&clocks));
  return clocks;
}

bool InstancesWin::askForSettings(WindowHandle clock) {
  const HWND window = windowFrom(clock);
  AllowSetForegroundWindow(processOf(window));
  // Wait for an answer: a process that is shutting down may never read what is posted to it.
  SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, kAnswerMs, nullptr);
  return PostMessageW(window, WM_COMMAND, kCommandOpenSettings, 0) != FALSE;
}

}  // namespace mrl

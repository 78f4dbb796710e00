// Prints what the running clock shows, one line for each change of its text, and says by its exit
// status whether the clock counted on: `watch_clock [--seconds N]`. Without N it never ends.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <optional>
#include <string>

namespace {

constexpr DWORD kPollMs = 50;
constexpr long kLongestStepSeconds = 5;  // a busy machine may skip some seconds

/// The clock publishes its text as the name of a global atom. Empty where no clock is.
std::wstring clockText() {
  const HWND clock = FindWindowW(L"Marlune.Native.Timer", L"Marlune");
  if (clock == nullptr) return {};
  const auto atom = static_cast<ATOM>(reinterpret_cast<UINT_PTR>(GetPropW(clock, L"Marlune.Text")));
  wchar_t name[256];
  const UINT length = atom == 0 ? 0 : GlobalGetAtomNameW(atom, name, 256);
  return {name, length};
}

/// The seconds that a text such as "09:58" or "1:02:03" stands for, whatever words go before it.
std::optional<long> secondsOf(const std::wstring& text) {
  size_t at = text.find_first_of(L"0123456789");
  if (at == std::wstring::npos || text.find(L':', at) == std::wstring::npos) return std::nullopt;
  long seconds = 0;
  while (true) {
    wchar_t* end = nullptr;
    seconds = seconds * 60 + std::wcstol(text.c_str() + at, &end, 10);
    if (*end != L':') return seconds;
    at = static_cast<size_t>(end + 1 - text.c_str());
  }
}

void printLine(const std::wstring& text) {
  char utf8[1024];
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), utf8,
                                       sizeof utf8, nullptr, nullptr);
  std::printf("%.*s\n", size, utf8);
  std::fflush(stdout);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  const bool limited = argc == 3 && std::wstring(argv[1]) == L"--seconds";
  const ULONGLONG limitMs = limited ? std::wcstoul(argv[2], nullptr, 10) * 1000ULL : 0;
  const ULONGLONG startedAtMs = GetTickCount64();
  std::wstring shown;
  bool countedOn = false;
  while (!limited || GetTickCount64() - startedAtMs < limitMs) {
    const std::wstring text = clockText();
    if (text != shown) {
      const std::optional<long> before = secondsOf(shown);
      const std::optional<long> now = secondsOf(text);
      const long step = before && now ? std::labs(*now - *before) : 0;
      countedOn = countedOn || (step >= 1 && step <= kLongestStepSeconds);
      printLine(text);
      shown = text;
    }
    Sleep(kPollMs);
  }
  return countedOn ? 0 : 1;
}

// The test's side of the stand-in.
#include "windows/standin_client.h"

#include "standin/control_window.h"
#include "windows/start_process.h"

namespace mrl::standin {
namespace {

constexpr wchar_t kReplyClass[] = L"Marlune.StandIn.Client";
constexpr UINT kAnswerLimitMs = 10'000;

std::wstring titleOf(HWND window) {
  wchar_t title[256];
  return {title, static_cast<size_t>(GetWindowTextW(window, title, std::size(title)))};
}

DWORD ownerOf(HWND window) {
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  return owner;
}

}  // namespace

std::wstring executableFolder() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L'\\') + 1);
}

Client::Client() {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kReplyClass;
  RegisterClassExW(&windowClass);  // fails if already registered: harmless
  replyWindow = CreateWindowExW(0, kReplyClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                windowClass.hInstance, nullptr);
  SetWindowLongPtrW(replyWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Client::~Client() {
  kill();
  if (process) CloseHandle(process);
  DestroyWindow(replyWindow);
}

bool Client::start(const std::wstring& image, const std::wstring& arguments) {
  process = startProcess(L"\"" + executableFolder() + image + L"\" " + arguments);
  return process != nullptr && waitForControl(L"");
}

bool Client::attach(const std::wstring& progId) {
  if (!waitForControl(progId)) return false;
  process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, ownerOf(control));
  return process != nullptr;
}

/// Waits for the control window of our process or, if there is none, of the one with that ProgID.
bool Client::waitForControl(const std::wstring& progId) {
  return waitUntil([&] {
    HWND window = nullptr;
    while ((window = FindWindowExW(HWND_MESSAGE, window, kControlClass, nullptr)) != nullptr) {
      if (process ? ownerOf(window) != processId() : titleOf(window) != progId) continue;
      control = window;
      return true;
    }
    return false;
  });
}

std::wstring Client::command(const std::wstring& text) {
  reply = L"error: no answer";
  COPYDATASTRUCT request{0, static_cast<DWORD>(text.size() * sizeof(wchar_t)),
                         const_cast<wchar_t*>(text.data())};
  // The reply arrives in our window procedure during this call.
  SendMessageTimeoutW(control, WM_COPYDATA, reinterpret_cast<WPARAM>(replyWindow),
                      reinterpret_cast<LPARAM>(&request), SMTO_NORMAL, kAnswerLimitMs, nullptr);
  return reply;
}

bool Client::shows(const std::wstring& path) {
  const std::wstring state = command(L"state");
  const size_t from = state.find(L"deck " + path.substr(path.find_last_of(L'\\') + 1));
  if (from == std::wstring::npos) return false;
  return state.substr(from, state.find(L';', from) - from).find(L"show none") == std::wstring::npos;
}

bool Client::answers() const {
  return SendMessageTimeoutW(control, WM_NULL, 0, 0, SMTO_NORMAL, 500, nullptr) != 0;
}

bool Client::waitForEnd() { return WaitForSingleObject(process, kAnswerLimitMs) == WAIT_OBJECT_0; }

void Client::kill() {
  if (!process) return;
  command(L"die");
  TerminateProcess(process, 1);  // also works if it hangs or never got ready
  WaitForSingleObject(process, kAnswerLimitMs);
}

LRESULT CALLBACK Client::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* client = reinterpret_cast<Client*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message != WM_COPYDATA || !client) return DefWindowProcW(window, message, wParam, lParam);
  const auto* answer = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
  client->reply.assign(static_cast<wchar_t*>(answer->lpData), answer->cbData / sizeof(wchar_t));
  return TRUE;
}

}  // namespace mrl::standin

#include "windows/start_process.h"

namespace mrl {

HANDLE startProcess(std::wstring line) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &started)) {
    return nullptr;
  }
  CloseHandle(started.hThread);
  return started.hProcess;
}

}  // namespace mrl

#include "windows/host_program.h"

namespace mrl {

bool startOnHost(std::wstring line, const wchar_t* folder, HANDLE output) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  if (output != nullptr) {
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
  }
  // Wine leaves this unset for a program of the host: closing its handles would close any of ours.
  PROCESS_INFORMATION unset{};
  return CreateProcessW(nullptr, line.data(), nullptr, nullptr, output != nullptr, 0, nullptr,
                        folder, &startup, &unset);
}

}  // namespace mrl

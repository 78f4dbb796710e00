// Stand-in for netsh: writes its arguments, one per line, to the file named by MARLUNE_NETSH and
// exits with MARLUNE_NETSH_STATUS. A second file, ".start", records its working directory and
// whether it was started hidden.
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

bool isHidden() {
  STARTUPINFOW start{};
  GetStartupInfoW(&start);
  return (start.dwFlags & STARTF_USESHOWWINDOW) != 0 && start.wShowWindow == SW_HIDE;
}

}  // namespace

int main(int argc, char** argv) {
  const char* const path = std::getenv("MARLUNE_NETSH");
  const char* const status = std::getenv("MARLUNE_NETSH_STATUS");
  if (path == nullptr) return 99;
  std::ofstream start(path + std::string(".start"), std::ios::binary);
  start << std::filesystem::current_path().string() << '\n'
        << (isHidden() ? "hidden" : "shown") << '\n';
  start.close();
  std::ofstream file(path, std::ios::binary);
  for (int i = 1; i < argc; ++i) file << argv[i] << '\n';
  return status == nullptr ? 0 : std::atoi(status);
}

// Stands in for the system's command that adds a rule to the firewall: writes its arguments, one a
// line, to the file that MARLUNE_NETSH names, and ends with the status of MARLUNE_NETSH_STATUS.
#include <cstdlib>
#include <fstream>
#include <string>

int main(int argc, char** argv) {
  const char* const path = std::getenv("MARLUNE_NETSH");
  const char* const status = std::getenv("MARLUNE_NETSH_STATUS");
  if (path == nullptr) return 99;
  std::ofstream file(path, std::ios::binary);
  for (int i = 1; i < argc; ++i) file << argv[i] << '\n';
  return status == nullptr ? 0 : std::atoi(status);
}

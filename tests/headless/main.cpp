// The headless program: an App over fakes, served by the real listener on loopback. Prints the
// page's address, then runs one command per line of standard input and answers each with "ok" or
// "error: ...". For tests and for viewing the page; needs no Windows.
#include <poll.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>

#include "base/text.h"
#include "headless/headless.h"

namespace {

constexpr char kUsage[] =
    "usage: marlune_headless [--port=N] [--page=FILE]\n"
    "  --port=N     listen on this port of 127.0.0.1; any free one without it\n"
    "  --page=FILE  the page to serve; src/remote/page.html without it\n";

std::optional<std::string> valueOf(const std::string& argument, const std::string& option) {
  if (!argument.starts_with(option)) return std::nullopt;
  return argument.substr(option.size());
}

/// Splits standard input into complete lines. next() is std::nullopt if none is complete yet.
class Lines {
 public:
  /// REQUIRES: standard input is readable.
  bool read() {
    char buffer[4096];
    const ssize_t count = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (count < 1) return false;
    bytes.append(buffer, static_cast<size_t>(count));
    return true;
  }
  std::optional<std::string> next() {
    const size_t end = bytes.find('\n');
    if (end == std::string::npos) return std::nullopt;
    std::string line = bytes.substr(0, end);
    bytes.erase(0, end + 1);
    return line;
  }

 private:
  std::string bytes;
};

void runLoop(mrl::Headless& program) {
  Lines lines;
  while (program.isRunning()) {
    pollfd asked[] = {{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0},
                      {.fd = program.wakeDescriptor(), .events = POLLIN, .revents = 0}};
    if (program.isBlocked()) {
      poll(asked, 1, -1);
    } else {
      poll(asked, 2, static_cast<int>(program.msUntilTick()));
      program.runPosted();
      program.tickIfDue();
    }
    if (asked[0].revents == 0) continue;
    if (!lines.read()) return;
    while (const auto line = lines.next()) {
      const std::string error = program.obey(*line);
      std::cout << (error.empty() ? "ok" : "error: " + error) << std::endl;
    }
  }
}

}  // namespace

int main(int count, char** arguments) {
  int32_t port = 0;
  std::string pageFile = "src/remote/page.html";
  for (int i = 1; i < count; ++i) {
    if (const auto number = valueOf(arguments[i], "--port=")) {
      port = std::atoi(number->c_str());
    } else if (const auto file = valueOf(arguments[i], "--page=")) {
      pageFile = *file;
    } else {
      std::fputs(kUsage, stderr);
      return 2;
    }
  }
  std::ifstream file(pageFile, std::ios::binary);
  if (!file) {
    std::cerr << "error: no page at " << pageFile << "; see --page\n";
    return 1;
  }
  mrl::Headless program(std::string(std::istreambuf_iterator<char>(file), {}));
  const std::string error = program.start(port);
  if (!error.empty()) {
    std::cerr << "error: " << error << '\n';
    return 1;
  }
  std::cout << "http://127.0.0.1:" << program.port() << '/' << std::endl;
  runLoop(program);
  program.finish();
  return 0;
}

// Fixture for tests in which the clock follows the shows of a stand-in. Windows only.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "windows/program.h"
#include "windows/standin_fixture.h"

namespace mrl {

class ShowFollowingTest : public testing::Test {
 protected:
  void startPresentations(const std::wstring& image = L"powerpnt.exe",
                          const std::wstring& arguments = L"") {
    ASSERT_TRUE(presentations.start(image, arguments));
  }
  void startTimer(const Settings& settings = {}) {
    program.prepare(settings);
    ASSERT_TRUE(program.start());
  }
  void tell(const std::wstring& command) { ASSERT_EQ(presentations.command(command), L"ok"); }
  void open(const standin::TemporaryDeck& deck) { tell(L"open \"" + deck.path + L"\""); }

  bool isIdle() { return program.waitForText(L"15:00") && program.standsStill(); }
  bool isPaused() { return program.standsStill() && program.text() != L"15:00"; }
  /// True once the countdown has restarted: the clock shows more time than before.
  bool hasRestarted(const std::wstring& before) {
    return standin::waitUntil([&] { return !program.text().empty() && program.text() > before; });
  }
  bool showEnds() {
    return standin::waitUntil(
        [&] { return presentations.command(L"state").find(L"show none") != std::wstring::npos; });
  }
  bool logHas(const std::wstring& words) {
    return presentations.command(L"log").find(words) != std::wstring::npos;
  }

  standin::TemporaryDeck demo{L"demo.pptx"};
  standin::TemporaryDeck other{L"other.pptx"};
  standin::Client presentations;
  Program program;
};

}  // namespace mrl

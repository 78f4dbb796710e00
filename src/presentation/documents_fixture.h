// Fixture for the document control tests: PowerPoint, two decks on disk, windows for two shows.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "presentation/documents.h"
#include "presentation/presentation_fake.h"
#include "presentation/show_poll.h"
#include "settings/path_rules.h"

namespace mrl {

class DocumentsTest : public testing::Test {
 protected:
  using Log = std::vector<std::string>;
  static constexpr char16_t kDeck[] = u"C:\\Talks\\deck.pptx";
  static constexpr char16_t kOther[] = u"C:\\Talks\\other.pptx";
  static constexpr char16_t kUntouched[] = u"untouched";

  DocumentsTest() {
    world.files.putFile(kDeck, "");
    world.files.putFile(kOther, "");
    application->nextShowWindow = 88;
    // Windows that the desktop scan doesn't recognise as shows.
    for (const int64_t handle : {77, 88}) {
      world.windows.windows.push_back({.handle = {handle}, .image = u"other.exe"});
    }
  }

  bool open(const std::u16string& path, bool play) {
    world.log.clear();
    return openDocument(world.access, world.state, path, play, error);
  }
  bool close(const std::u16string& path) {
    world.log.clear();
    return closeDocument(world.access, world.state, path, error);
  }
  bool raise(const std::u16string& path) {
    world.log.clear();
    return raiseDocumentShow(world.access, world.state, path);
  }

  void keep(const std::shared_ptr<FakeApplication>& kept) {
    world.state.application = kept->object;
    world.state.progId = kept->progId;
  }
  void forgetAll() { world.state = {}; }

  /// The calls with which openDocument checks the screen: a poll and a search for the show.
  Log lookingAtTheScreen() {
    world.log.clear();
    AutomationState copy = world.state;
    const ShowStatus status = pollShowStatus(world.access, copy);
    if (status.running) {
      (void)findShowWindow(world.access, copy.application, copy.expectedDocument);
    }
    Log calls;
    calls.swap(world.log);
    return calls;
  }
  /// The calls that search an application for a deck listed after `others` other decks.
  static Log searching(int others, bool found) {
    Log calls{"get application.Presentations"};
    for (int index = 1; index <= others + (found ? 1 : 0); ++index) {
      calls.insert(calls.end(),
                   {"get presentations.Count", "both presentations.Item " + std::to_string(index),
                    "get presentation.FullName"});
    }
    if (!found) calls.emplace_back("get presentations.Count");
    return calls;
  }
  /// The log of raising a window.
  static Log raised(const std::string& window) {
    return {"show " + window, "topmost " + window, "not topmost " + window, "top " + window,
            "foreground " + window};
  }
  static Log join(std::initializer_list<Log> parts) {
    Log all;
    for (const Log& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
  }
  bool logged(const std::string& entry) {
    return std::find(world.log.begin(), world.log.end(), entry) != world.log.end();
  }
  /// Whether any call of this member was made.
  bool called(const std::string& member) {
    return std::any_of(world.log.begin(), world.log.end(), [&](const std::string& entry) {
      const size_t name = entry.find(' ') + 1;
      return entry.substr(name, entry.find(' ', name) - name) == member;
    });
  }

  PresentationFake world;
  std::u16string error = kUntouched;
  std::shared_ptr<FakeApplication> application = world.automation.add(u"PowerPoint.Application");
  const Log others{"running KWPP.Application", "running WPP.Application"};
};

}  // namespace mrl

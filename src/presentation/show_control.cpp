// Commands to a show, by automation and by keys.
#include "presentation/show_control.h"

#include <algorithm>

#include "base/text.h"
#include "presentation/raise_window.h"
#include "presentation/window_scan.h"

namespace mrl {
namespace {

struct MoveRow {
  std::string_view command;
  std::u16string_view member;  // of the view
};

constexpr MoveRow kMoves[] = {
    {"next", u"Next"},
    {"previous", u"Previous"},
    {"exit", u"Exit"},
};

constexpr uint16_t kNoKey = 0;

struct KeyRow {
  std::string_view command;
  uint16_t modifier;
  uint16_t key;
};

// Virtual key codes.
constexpr KeyRow kKeys[] = {
    {"begin", kNoKey, 0x74},     // F5
    {"current", 0x10, 0x74},     // Shift+F5
    {"next", kNoKey, 0x27},      // Right
    {"previous", kNoKey, 0x25},  // Left
    {"exit", kNoKey, 0x1B},      // Escape
    {"close", 0x12, 0x73},       // Alt+F4
};

template <typename Row, size_t kCount>
const Row* findCommand(const Row (&rows)[kCount], std::string_view command) {
  const auto row = std::find_if(std::begin(rows), std::end(rows),
                                [&](const Row& each) { return each.command == command; });
  return row == std::end(rows) ? nullptr : row;
}

void raiseShow(const PresentationAccess& access, const AutomationRef& show,
               const AutomationRef& presentation) {
  const std::u16string path = getString(access, presentation, u"FullName");
  raiseWindow(access.windows, showWindowHandle(access, show, path));
}

AutomationResult startShow(const PresentationAccess& access, const AutomationRef& application,
                           bool fromEditedSlide) {
  const AutomationRef presentation = getObject(access, application, u"ActivePresentation");
  const AutomationRef settings = getObject(access, presentation, u"SlideShowSettings");
  const int32_t slide =
      fromEditedSlide ? editedSlide(access, getObject(access, application, u"ActiveWindow")) : 1;
  const AutomationRef show = getObject(access, settings, u"Run", DispatchKind::Method);
  if (!show) return kAutomationFailed;
  const AutomationResult result = goToSlide(access, show, slide);
  raiseShow(access, show, presentation);
  return result;
}

AutomationResult runCommand(const PresentationAccess& access, const AutomationState& automation,
                            std::string_view command) {
  const AutomationRef application = automation.application;  // a copy: may change during a call
  const AutomationRef show = findShowWindow(access, application, automation.expectedDocument);
  if (command == "close") {
    return invokeMember(access, getObject(access, application, u"ActivePresentation"), u"Close",
                        DispatchKind::Method);
  }
  if (command == "begin" || command == "current") {
    if (!show) return startShow(access, application, command == "current");
    if (command == "begin") return goToSlide(access, show, 1);
    // The show stays on its slide. Success even if its window can't be found or raised.
    raiseShow(access, show, getObject(access, show, u"Presentation"));
    return kAutomationOk;
  }
  const MoveRow* move = findCommand(kMoves, command);
  if (!show || !move) return kAutomationFailed;
  return invokeMember(access, getObject(access, show, u"View"), move->member, DispatchKind::Method);
}

}  // namespace

bool sendShowCommand(const PresentationAccess& access, AutomationState& automation,
                     std::string_view command, std::u16string& error) {
  if (!connectApplication(access, automation)) {
    if (sendShowKeys(access.windows, command)) return true;
    error = u"未检测到可控制的 PowerPoint/WPS 窗口";
    return false;
  }
  const AutomationResult result = runCommand(access, automation, command);
  if (result >= 0 || sendShowKeys(access.windows, command)) return true;
  error = u"放映操作失败（COM HRESULT=" + decimal(static_cast<uint32_t>(result)) + u"）";
  return false;
}

bool sendShowKeys(WindowSystem& windows, std::string_view command) {
  ProgramWindows programs(windows);
  const WindowScan scan = scanPresentationWindows(programs, u"");
  // Keys that move a show are pointless if there is none.
  const bool needsShow = command != "begin" && command != "current" && command != "close";
  if (!scan.fullScreenWindow && needsShow) return false;
  const WindowHandle target = scan.fullScreenWindow ? scan.fullScreenWindow : scan.firstWindow;
  if (!target) return false;

  windows.restore(target);
  windows.setForeground(target);
  // Keys must never reach another program, or another window of the same one.
  if (windows.foreground() != target) return false;

  const KeyRow* row = findCommand(kKeys, command);
  if (!row) return false;
  std::vector<WindowSystem::KeyEvent> events{{row->key, false}, {row->key, true}};
  if (row->modifier != kNoKey) {
    events.insert(events.begin(), {row->modifier, false});
    events.push_back({row->modifier, true});
  }
  return windows.sendKeys(events) == events.size();
}

}  // namespace mrl

// The poll asks the applications first and scans the desktop only if none of them has a show.
#include "presentation/show_poll.h"

#include <algorithm>

#include "presentation/window_scan.h"
#include "settings/path_rules.h"

namespace mrl {
namespace {

// What one poll learned from the lists of open presentations.
struct OpenDocuments {
  bool any = false;
  bool lastDocumentOpen = false;
  bool providerComplete = false;  // the last document's provider listed all that it has open
};

// The provider in use comes first.
std::vector<std::u16string> candidates(const AutomationState& automation) {
  std::vector<std::u16string> list;
  if (!automation.progId.empty()) list.push_back(automation.progId);
  for (const std::u16string_view provider : kProviders) {
    if (provider != automation.progId) list.emplace_back(provider);
  }
  return list;
}

AutomationRef applicationOf(const PresentationAccess& access, const AutomationState& automation,
                            ProgramWindows& programs, const std::u16string& candidate) {
  // Not tested here: on a dead reference every call fails and the poll moves on.
  if (candidate == automation.progId && automation.application) return automation.application;
  return access.automation.running(candidate, programs);
}

void listDocuments(const PresentationAccess& access, const AutomationState& automation,
                   const AutomationRef& application, const std::u16string& candidate,
                   OpenDocuments& open) {
  const AutomationRef presentations = getObject(access, application, u"Presentations");
  if (!presentations) return;
  int32_t count = 0;
  bool complete = access.automation.readInteger(presentations, u"Count", count);
  if (count > 0) open.any = true;
  if (!automation.lastDocument.empty()) {
    if (count > kMaxElements) complete = false;
    for (int32_t index = 1; index <= std::min(count, kMaxElements); ++index) {
      const std::u16string path =
          getString(access, elementAt(access, presentations, index), u"FullName");
      if (path.empty()) {
        complete = false;
      } else if (samePath(normalizePath(access.files, path), automation.lastDocument)) {
        open.lastDocumentOpen = true;
      }
    }
  }
  if (complete && candidate == automation.lastProvider) open.providerComplete = true;
}

void readShow(const PresentationAccess& access, AutomationState& automation,
              const AutomationRef& show, const std::u16string& candidate, ShowStatus& status) {
  const AutomationRef slide = getObject(access, getObject(access, show, u"View"), u"Slide");
  const AutomationRef presentation = getObject(access, show, u"Presentation");
  status.running = true;
  status.provider = candidate;
  status.slide = getInt(access, slide, u"SlideIndex");
  status.documentPath = getString(access, presentation, u"FullName");
  status.window = showWindowHandle(access, show, status.documentPath);
  status.documentState = DocumentState::Open;
  if (!status.documentPath.empty()) {
    status.normalizedPath = normalizePath(access.files, status.documentPath);
    automation.lastDocument = status.normalizedPath;
    automation.lastProvider = candidate;
  }
}

DocumentState stateWithoutShow(const AutomationState& automation, const OpenDocuments& open,
                               const WindowScan& scan) {
  if (open.lastDocumentOpen) return DocumentState::Open;
  if (open.providerComplete) return DocumentState::Closed;
  const auto namesLastDocument = [&](const std::u16string& title) {
    return titleNamesDocument(title, automation.lastDocument);  // empty: matches no title
  };
  if (std::any_of(scan.titles.begin(), scan.titles.end(), namesLastDocument)) {
    return DocumentState::Open;
  }
  if (!scan.found && !open.any) return DocumentState::Closed;
  return DocumentState::Unknown;
}

}  // namespace

ShowStatus pollShowStatus(const PresentationAccess& access, AutomationState& automation) {
  ShowStatus status;
  OpenDocuments open;
  ProgramWindows programs(access.windows);
  const AutomationState known = automation;  // a copy: may change during a call
  for (const std::u16string& candidate : candidates(known)) {
    const AutomationRef application = applicationOf(access, known, programs, candidate);
    if (!application) continue;
    listDocuments(access, known, application, candidate, open);
    const AutomationRef show = findShowWindow(access, application, known.expectedDocument);
    if (!show) continue;
    automation.application = application;
    automation.progId = candidate;
    status.presentationsOpen = open.any;
    readShow(access, automation, show, candidate, status);
    return status;
  }

  const WindowScan scan = scanPresentationWindows(programs, u"");
  status.presentationsOpen = open.any || scan.found;
  if (scan.fullScreenWindow) {
    status.running = true;
    status.window = scan.fullScreenWindow;
    status.windowTitle = scan.fullScreenTitle;
    status.provider = kNativeProvider;
    status.documentState = DocumentState::Open;
    return status;
  }
  status.documentState = stateWithoutShow(known, open, scan);
  return status;
}

}  // namespace mrl

// Opening, playing and closing decks. The order of the calls matters to the applications.
#include "presentation/documents.h"

#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "presentation/raise_window.h"
#include "presentation/show_identity.h"
#include "presentation/show_poll.h"
#include "settings/file_kind.h"
#include "settings/path_rules.h"

namespace mrl {
namespace {

struct Candidate {
  AutomationRef application;
  std::u16string progId;
};

/// What is on screen before anything is changed.
struct CurrentShow {
  ShowStatus status;
  AutomationRef show;  // null when automation doesn't reach it
};

/// The kept application comes first; it isn't tested, and its ProgID isn't looked up again.
std::vector<Candidate> runningApplications(const PresentationAccess& access,
                                           const AutomationState& automation) {
  std::vector<Candidate> list;
  if (automation.application) list.push_back({automation.application, automation.progId});
  ProgramWindows programs(access.windows);
  for (const std::u16string_view provider : kProviders) {
    if (automation.application && provider == automation.progId) continue;
    const AutomationRef application = access.automation.running(provider, programs);
    if (application) list.push_back({application, std::u16string(provider)});
  }
  return list;
}

/// `target` is normalised. Null if the application doesn't have it open.
AutomationRef findPresentation(const PresentationAccess& access, const AutomationRef& application,
                               const std::u16string& target) {
  const AutomationRef presentations = getObject(access, application, u"Presentations");
  for (int32_t index = 1; index <= countElements(access, presentations); ++index) {
    const AutomationRef presentation = elementAt(access, presentations, index);
    const std::u16string path = getString(access, presentation, u"FullName");
    if (!path.empty() && samePath(normalizePath(access.files, path), target)) return presentation;
  }
  return nullptr;
}

/// The presentation if any application has it open; that application is then kept in `automation`.
AutomationRef adoptOpenPresentation(const PresentationAccess& access, AutomationState& automation,
                                    const std::u16string& target) {
  for (const Candidate& candidate : runningApplications(access, automation)) {
    const AutomationRef presentation = findPresentation(access, candidate.application, target);
    if (!presentation) continue;
    automation.application = candidate.application;
    automation.progId = candidate.progId;
    return presentation;
  }
  return nullptr;
}

void startApplication(const PresentationAccess& access, AutomationState& automation) {
  for (const std::u16string_view provider : kProviders) {
    automation.application = access.automation.start(provider);
    if (!automation.application) continue;
    automation.progId = provider;
    return;
  }
}

/// Returns null and fills `error` if no application is available or the file can't be opened.
AutomationRef openPresentation(const PresentationAccess& access, AutomationState& automation,
                               const std::u16string& path, std::u16string& error) {
  // A kept application is not tested first: if it has exited, the call below fails.
  if (!automation.application && !connectApplication(access, automation)) {
    startApplication(access, automation);
  }
  if (!automation.application) {
    error = u"没有可用的 Office/WPS COM 服务；计时器可独立使用";
    return nullptr;
  }
  constexpr int32_t kReadOnly = 0;
  constexpr int32_t kUntitled = 0;
  constexpr int32_t kWithWindow = -1;  // automation's "true"
  AutomationRef presentation =
      getObject(access, getObject(access, automation.application, u"Presentations"), u"Open",
                DispatchKind::Method, {path, kReadOnly, kUntitled, kWithWindow});
  if (!presentation) error = u"无法通过 COM 打开演示文件";
  return presentation;
}

bool endCurrentShow(const PresentationAccess& access, const CurrentShow& current,
                    std::u16string& error) {
  if (!current.status.running) return true;
  if (!current.show || current.status.documentPath.empty()) {
    error = u"无法安全切换当前放映，请先手动退出当前放映";
    return false;
  }
  const AutomationRef view = getObject(access, current.show, u"View");
  if (invokeMember(access, view, u"Exit", DispatchKind::Method) < 0) {
    error = u"无法退出当前放映，请先手动退出后重试";
    return false;
  }
  return true;
}

bool startShow(const PresentationAccess& access, AutomationState& automation,
               const AutomationRef& presentation, const std::u16string& target, int32_t slide,
               std::u16string& error) {
  const AutomationRef settings = getObject(access, presentation, u"SlideShowSettings");
  const AutomationRef show = getObject(access, settings, u"Run", DispatchKind::Method);
  if (!show) {
    error = u"无法开始放映";
    return false;
  }
  automation.expectedDocument = target;
  if (slide > 1 && goToSlide(access, show, slide) < 0) {
    error = u"已开始放映，但无法跳转到当前页";
    return false;
  }
  raiseWindow(access.windows, showWindowHandle(access, show, target));
  return true;
}

}  // namespace

bool openDocument(const PresentationAccess& access, AutomationState& automation,
                  const std::u16string& path, bool play, std::u16string& error) {
  if (fileKindOf(access.files, path) != FileKind::Regular) {
    error = u"演示文件不存在";
    return false;
  }
  const std::u16string target = normalizePath(access.files, path);
  CurrentShow current{.status = pollShowStatus(access, automation)};
  const ShowStatus& status = current.status;
  if (status.running) {
    current.show = findShowWindow(access, automation.application, automation.expectedDocument);
  }

  AutomationRef presentation = adoptOpenPresentation(access, automation, target);
  const bool wasOpen = presentation != nullptr;
  if (!wasOpen) presentation = openPresentation(access, automation, path, error);
  if (!presentation) return false;
  if (!play) return true;

  if (current.show && !status.documentPath.empty() && samePath(status.normalizedPath, target)) {
    automation.expectedDocument = target;
    raiseWindow(access.windows, status.window);
    return true;
  }

  // If the presenter already has the deck open, start at their current slide.
  int32_t slide = 1;
  if (wasOpen) {
    const AutomationRef windows = getObject(access, presentation, u"Windows");
    slide = editedSlide(access, elementAt(access, windows, 1));
  }
  return endCurrentShow(access, current, error) &&
         startShow(access, automation, presentation, target, slide, error);
}

bool tryOpenDocument(const PresentationAccess& access, AutomationState& automation,
                     const std::u16string& path, bool play, std::u16string& error) {
  try {
    return openDocument(access, automation, path, play, error);
  } catch (const std::filesystem::filesystem_error& failure) {
    error = utf16From(failure.what());
    return false;
  }
}

bool closeDocument(const PresentationAccess& access, const AutomationState& automation,
                   const std::u16string& path, std::u16string& error) {
  const std::u16string target = normalizePath(access.files, path);
  std::vector<AutomationRef> applications;
  if (automation.application) applications.push_back(automation.application);
  ProgramWindows programs(access.windows);
  for (const std::u16string_view provider : kProviders) {
    // An application may be listed twice; harmless, because the first match ends the search.
    const AutomationRef application = access.automation.running(provider, programs);
    if (application) applications.push_back(application);
  }
  for (const AutomationRef& application : applications) {
    const AutomationRef presentation = findPresentation(access, application, target);
    if (!presentation) continue;
    if (invokeMember(access, presentation, u"Close", DispatchKind::Method) >= 0) return true;
    error = u"无法关闭指定文稿，请检查是否有未保存的更改";
    return false;
  }
  error = u"指定文稿没有打开";
  return false;
}

bool raiseDocumentShow(const PresentationAccess& access, AutomationState& automation,
                       const std::u16string& path) {
  const ShowStatus status = pollShowStatus(access, automation);
  if (!status.window || !showsDocument(access.files, status, path)) return false;
  raiseWindow(access.windows, status.window);
  return access.windows.foreground() == status.window;
}

}  // namespace mrl

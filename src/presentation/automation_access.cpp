// Calls by name and the helpers built on them.
#include "presentation/automation_access.h"

#include <algorithm>

#include "presentation/window_scan.h"
#include "settings/path_rules.h"

namespace mrl {

AutomationResult invokeMember(const PresentationAccess& access, const AutomationRef& object,
                              std::u16string_view name, DispatchKind kind, AutomationValue* result,
                              const std::vector<AutomationValue>& arguments) {
  if (!object) return kAutomationNullObject;
  return access.automation.call(object, name, kind, result, arguments);
}

AutomationRef getObject(const PresentationAccess& access, const AutomationRef& object,
                        std::u16string_view name, DispatchKind kind,
                        const std::vector<AutomationValue>& arguments) {
  AutomationValue result;
  if (invokeMember(access, object, name, kind, &result, arguments) < 0) return nullptr;
  const AutomationRef* found = std::get_if<AutomationRef>(&result);
  return found ? *found : nullptr;
}

int32_t getInt(const PresentationAccess& access, const AutomationRef& object,
               std::u16string_view name) {
  int32_t value = 0;
  if (!object || !access.automation.readInteger(object, name, value)) return 0;
  return value;
}

std::u16string getString(const PresentationAccess& access, const AutomationRef& object,
                         std::u16string_view name) {
  AutomationValue result;
  if (invokeMember(access, object, name, DispatchKind::Get, &result) < 0) return {};
  const std::u16string* text = std::get_if<std::u16string>(&result);
  return text ? *text : std::u16string();
}

int32_t countElements(const PresentationAccess& access, const AutomationRef& collection) {
  return std::min(getInt(access, collection, u"Count"), kMaxElements);
}

AutomationRef elementAt(const PresentationAccess& access, const AutomationRef& collection,
                        int32_t index) {
  return getObject(access, collection, u"Item", DispatchKind::MethodOrGet, {index});
}

bool connectApplication(const PresentationAccess& access, AutomationState& automation) {
  AutomationValue ignored;
  if (invokeMember(access, automation.application, u"Name", DispatchKind::Get, &ignored) >= 0) {
    return true;
  }
  ProgramWindows programs(access.windows);
  for (const std::u16string_view provider : kProviders) {
    automation.application = access.automation.running(provider, programs);
    if (automation.application) {
      automation.progId = provider;
      return true;
    }
  }
  automation.progId.clear();
  return false;
}

AutomationRef findShowWindow(const PresentationAccess& access, const AutomationRef& application,
                             std::u16string expectedDocument) {
  const AutomationRef shows = getObject(access, application, u"SlideShowWindows");
  if (countElements(access, shows) < 1) return nullptr;
  if (!expectedDocument.empty()) expectedDocument = normalizePath(access.files, expectedDocument);
  AutomationRef firstShow;
  for (int32_t index = 1; index <= countElements(access, shows); ++index) {
    const AutomationRef show = elementAt(access, shows, index);
    if (!firstShow) firstShow = show;
    if (expectedDocument.empty()) continue;
    const std::u16string path =
        getString(access, getObject(access, show, u"Presentation"), u"FullName");
    if (!path.empty() && samePath(normalizePath(access.files, path), expectedDocument)) {
      return show;
    }
  }
  return firstShow;
}

WindowHandle showWindowHandle(const PresentationAccess& access, const AutomationRef& showWindow,
                              const std::u16string& documentPath) {
  // Sign-extended on purpose: that is how a 64-bit handle survives a 32-bit integer.
  const WindowHandle window{getInt(access, showWindow, u"HWND")};
  if (access.windows.isWindow(window)) return window;
  if (documentPath.empty()) return {};
  ProgramWindows programs(access.windows);
  return scanPresentationWindows(programs, documentPath).fullScreenWindow;
}

AutomationResult goToSlide(const PresentationAccess& access, const AutomationRef& show,
                           int32_t slide) {
  return invokeMember(access, getObject(access, show, u"View"), u"GotoSlide", DispatchKind::Method,
                      nullptr, {slide});
}

int32_t editedSlide(const PresentationAccess& access, const AutomationRef& documentWindow) {
  const AutomationRef view = getObject(access, documentWindow, u"View");
  return std::max(getInt(access, getObject(access, view, u"Slide"), u"SlideIndex"), 1);
}

}  // namespace mrl

// Thin layer over Automation: which presentation programs are tried, what is kept between ticks,
// and helpers for calls by name. All on the UI thread; every call may block indefinitely.
//
// Failures are reported as null, 0, false or an empty text, never thrown. In a chain of calls test
// only the last result: on a null object every call fails without leaving the process.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/window_handle.h"
#include "presentation/automation.h"
#include "presentation/window_system.h"
#include "settings/files.h"

namespace mrl {

/// The ProgIDs of the presentation programs, in the order in which they are tried.
inline constexpr std::u16string_view kProviders[] = {
    u"PowerPoint.Application",
    u"KWPP.Application",
    u"WPP.Application",
};

/// At most this many elements of a collection are read: a nonsense count must not block the UI
/// thread.
inline constexpr int32_t kMaxElements = 1000;

/// State kept between calls. No other objects of the other program are kept.
struct AutomationState {
  AutomationRef application;        // last connected to, or last seen with a show; may have exited
  std::u16string progId;            // the ProgID of `application`
  std::u16string expectedDocument;  // normalised; the deck whose show we started last
  std::u16string lastDocument;      // normalised; last seen in a show
  std::u16string lastProvider;      // the ProgID under which it was seen
};

/// The interfaces that this subsystem uses.
struct PresentationAccess {
  Automation& automation;
  WindowSystem& windows;
  Files& files;
};

/// Calls one member by name. Returns kAutomationNullObject without calling if `object` is null.
AutomationResult invokeMember(const PresentationAccess& access, const AutomationRef& object,
                              std::u16string_view name, DispatchKind kind,
                              AutomationValue* result = nullptr,
                              const std::vector<AutomationValue>& arguments = {});

/// Null on any failure, or if the result is not an object.
AutomationRef getObject(const PresentationAccess& access, const AutomationRef& object,
                        std::u16string_view name, DispatchKind kind = DispatchKind::Get,
                        const std::vector<AutomationValue>& arguments = {});

/// 0 on any failure: a failed read and a value of 0 can't be told apart.
int32_t getInt(const PresentationAccess& access, const AutomationRef& object,
               std::u16string_view name);

/// Empty on any failure, or if the result is not a text.
std::u16string getString(const PresentationAccess& access, const AutomationRef& object,
                         std::u16string_view name);

/// Number of elements to visit, limited to kMaxElements. Loops re-read it before each element so
/// that they end if the collection shrinks meanwhile.
int32_t countElements(const PresentationAccess& access, const AutomationRef& collection);
/// `index` is 1-based.
AutomationRef elementAt(const PresentationAccess& access, const AutomationRef& collection,
                        int32_t index);

/// Connects to a running application: keeps `automation.application` if it responds, otherwise
/// takes the first provider that is running. Never starts one. On failure clears application and
/// ProgID.
[[nodiscard]] bool connectApplication(const PresentationAccess& access,
                                      AutomationState& automation);

/// The show of `expectedDocument` (may be empty), otherwise the first show; null if there is none.
AutomationRef findShowWindow(const PresentationAccess& access, const AutomationRef& application,
                             std::u16string expectedDocument);

/// The window handle of a show: the one the application reports, otherwise the one that a scan of
/// the desktop finds for `documentPath`; null if neither works.
WindowHandle showWindowHandle(const PresentationAccess& access, const AutomationRef& showWindow,
                              const std::u16string& documentPath);

AutomationResult goToSlide(const PresentationAccess& access, const AutomationRef& show,
                           int32_t slide);

/// The current slide of a document window; 1 if it can't be read.
int32_t editedSlide(const PresentationAccess& access, const AutomationRef& documentWindow);

}  // namespace mrl

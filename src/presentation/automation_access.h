// The thin layer that reaches the presentation programs: which ones are tried, what is held from
// one tick to the next, and how members are called by name. All on the UI thread; every call may
// block for as long as the other program likes.
//
// Failures are results only: null, 0, false or an empty text. A chain of calls is tested at its
// end, since a null object makes every further call fail without going anywhere.
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

/// The ProgIDs under which presentation programs are reached, in the order in which they are tried.
inline constexpr std::u16string_view kProviders[] = {
    u"PowerPoint.Application",
    u"KWPP.Application",
    u"WPP.Application",
};

/// A collection that claims more elements than this is read up to here: a nonsense count must not
/// hold the UI thread for days.
inline constexpr int32_t kMaxElements = 1000;

/// What outlives a call. Nothing else of the other program's objects is kept.
struct AutomationState {
  AutomationRef application;        // last connected to, or last seen with a show; may be dead
  std::u16string progId;            // by which `application` was reached
  std::u16string expectedDocument;  // normalised; the deck that this program itself last started
  std::u16string lastDocument;      // normalised; last seen in a show
  std::u16string lastProvider;      // the ProgID under which it was seen
};

/// The doors that this subsystem goes through.
struct PresentationAccess {
  Automation& automation;
  WindowSystem& windows;
  Files& files;
};

/// One call by name; kAutomationNullObject, and no call, for a null object.
AutomationResult invokeMember(const PresentationAccess& access, const AutomationRef& object,
                              std::u16string_view name, DispatchKind kind,
                              AutomationValue* result = nullptr,
                              const std::vector<AutomationValue>& arguments = {});

/// Null on any failure and when no object comes back.
AutomationRef getObject(const PresentationAccess& access, const AutomationRef& object,
                        std::u16string_view name, DispatchKind kind = DispatchKind::Get,
                        const std::vector<AutomationValue>& arguments = {});

/// 0 on any failure, so that a failed read and a value of 0 look alike.
int32_t getInt(const PresentationAccess& access, const AutomationRef& object,
               std::u16string_view name);

/// Empty on any failure and when no text comes back.
std::u16string getString(const PresentationAccess& access, const AutomationRef& object,
                         std::u16string_view name);

/// How many elements to visit. Loops read it anew before each element, so that a collection which
/// shrinks meanwhile ends them.
int32_t countElements(const PresentationAccess& access, const AutomationRef& collection);
/// `index` counts from 1.
AutomationRef elementAt(const PresentationAccess& access, const AutomationRef& collection,
                        int32_t index);

/// Makes sure that `automation.application` answers: keeps it if it does, otherwise takes the first
/// provider that runs. Starts nothing. On failure application and ProgID are cleared.
[[nodiscard]] bool connectApplication(const PresentationAccess& access,
                                      AutomationState& automation);

/// The show window of `expectedDocument` (normalised, may be empty), or else the first one, or
/// null.
AutomationRef findShowWindow(const PresentationAccess& access, const AutomationRef& application,
                             std::u16string expectedDocument);

/// The screen window of a show: what the application says, or else what the desktop shows for
/// `documentPath`, or null.
WindowHandle showWindowHandle(const PresentationAccess& access, const AutomationRef& showWindow,
                              const std::u16string& documentPath);

AutomationResult goToSlide(const PresentationAccess& access, const AutomationRef& show,
                           int32_t slide);

/// The slide that the presenter has before them in a document window; 1 when it can't be told.
int32_t editedSlide(const PresentationAccess& access, const AutomationRef& documentWindow);

}  // namespace mrl

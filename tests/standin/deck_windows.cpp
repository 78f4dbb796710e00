// Real windows with the class names and titles used by presentation programs.
#include "standin/deck_windows.h"

#include <utility>

#include "standin/dispatch.h"
#include "standin/slide_painting.h"
#include "standin/stand_in.h"

namespace mrl::standin {
namespace {

// PowerPoint's windows have a child of this class that leads to the object model.
constexpr wchar_t kInnerEditingClass[] = L"mdiClass";
constexpr wchar_t kInnerShowClass[] = L"paneClassDC";

/// Data for the window procedure; owned by the window and deleted with it.
struct WindowData {
  StandIn& standIn;
  ObjectRef self;
  bool leadsToObject;  // provides the native object
};

WindowData* dataOf(HWND window) {
  return reinterpret_cast<WindowData*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

/// Common to all windows: the lifetime of their data, and keys that Windows also handles.
LRESULT CALLBACK handleAny(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  if (message == WM_GETOBJECT && static_cast<LONG>(lParam) == OBJID_NATIVEOM && dataOf(window)) {
    const WindowData& data = *dataOf(window);
    if (data.leadsToObject) return answerNativeObject(data.standIn, data.self, wParam);
  }
  if (message == WM_NCDESTROY) {
    delete dataOf(window);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

template <typename Paint>
void paint(HWND window, Paint&& content) {
  PAINTSTRUCT work;
  const HDC target = BeginPaint(window, &work);
  RECT client;
  GetClientRect(window, &client);
  content(target, client);
  EndPaint(window, &work);
}

LRESULT CALLBACK editingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  WindowData* data = dataOf(window);
  if (!data) return handleAny(window, message, wParam, lParam);
  StandIn& standIn = data->standIn;
  switch (message) {
    case WM_PAINT:
      paint(window, [&](HDC target, const RECT& area) {
        if (const Deck* deck = standIn.model.deck(data->self.id)) paintEditing(target, area, *deck);
      });
      return 0;
    case WM_ERASEBKGND: return 1;
    case WM_KEYDOWN:
      standIn.editingKey(data->self.id, static_cast<unsigned>(wParam), GetKeyState(VK_SHIFT) < 0);
      return 0;
    case WM_SYSKEYDOWN:
      standIn.editingKey(data->self.id, static_cast<unsigned>(wParam), false);
      break;  // DefWindowProc turns Alt+F4 into WM_CLOSE
    case WM_CLOSE:
      standIn.model.close(data->self.id);
      standIn.showChanges();
      return 0;
  }
  return handleAny(window, message, wParam, lParam);
}

LRESULT CALLBACK showProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  WindowData* data = dataOf(window);
  if (!data) return handleAny(window, message, wParam, lParam);
  StandIn& standIn = data->standIn;
  switch (message) {
    case WM_PAINT:
      paint(window, [&](HDC target, const RECT& area) {
        const Show* show = standIn.model.show(data->self.id);
        if (!show) return;
        if (show->atEnd)
          paintEnd(target, area);
        else
          paintSlide(target, area, *standIn.model.deck(show->deckId), show->slide);
      });
      return 0;
    case WM_ERASEBKGND: return 1;
    case WM_KEYDOWN: standIn.showKey(data->self.id, static_cast<unsigned>(wParam)); return 0;
    case WM_SYSKEYDOWN: standIn.showKey(data->self.id, static_cast<unsigned>(wParam)); break;
    case WM_CLOSE:
      standIn.model.exit(data->self.id);
      standIn.showChanges();
      return 0;
  }
  return handleAny(window, message, wParam, lParam);
}

void registerWindowClass(const wchar_t* name, WNDPROC procedure) {
  WNDCLASSEXW window{};
  window.cbSize = sizeof window;
  window.style = CS_HREDRAW | CS_VREDRAW;
  window.lpfnWndProc = procedure;
  window.hInstance = GetModuleHandleW(nullptr);
  window.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  window.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
  window.lpszClassName = name;
  RegisterClassExW(&window);
}

/// The full rectangle of a monitor (1-based); of the primary one if there is no such monitor.
RECT monitorArea(int number) {
  std::vector<RECT> areas;
  EnumDisplayMonitors(
      nullptr, nullptr,
      [](HMONITOR, HDC, RECT* area, LPARAM out) -> BOOL {
        reinterpret_cast<std::vector<RECT>*>(out)->push_back(*area);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&areas));
  if (number >= 1 && number <= static_cast<int>(areas.size())) return areas[number - 1];
  return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

HWND createWindow(StandIn& standIn, const ObjectRef& self, const std::wstring& windowClass,
                  const wchar_t* innerClass, const std::wstring& title, DWORD style,
                  const RECT& area) {
  const bool hasInner = standIn.options.innerWindows;
  auto* data = new WindowData{standIn, self, !hasInner};  // the window deletes it
  const HWND window = CreateWindowExW(0, windowClass.c_str(), title.c_str(), style, area.left,
                                      area.top, area.right - area.left, area.bottom - area.top,
                                      nullptr, nullptr, GetModuleHandleW(nullptr), data);
  // Zero size: it exists only to be queried.
  if (hasInner)
    CreateWindowExW(0, innerClass, L"", WS_CHILD, 0, 0, 0, 0, window, nullptr,
                    GetModuleHandleW(nullptr), new WindowData{standIn, self, true});
  ShowWindow(window, SW_SHOW);
  SetForegroundWindow(window);
  return window;
}

HWND createEditing(StandIn& standIn, const Deck& deck) {
  const RECT screen = monitorArea(0);
  const int width = screen.right * 3 / 4;
  const int height = screen.bottom * 3 / 4;
  return createWindow(standIn, {ObjectKind::DocumentWindow, deck.id}, standIn.options.editingClass,
                      kInnerEditingClass, fileName(deck.path) + L" - " + standIn.programName(),
                      WS_OVERLAPPEDWINDOW,
                      {width / 10, height / 10, width / 10 + width, height / 10 + height});
}

HWND createShow(StandIn& standIn, const Show& show) {
  const std::wstring deck = fileName(standIn.model.deck(show.deckId)->path);
  const std::wstring& told = standIn.options.showTitle;
  const std::wstring title = told.empty() ? standIn.programName() + L" Slide Show" : told;
  return createWindow(standIn, {ObjectKind::SlideShowWindow, show.id}, standIn.options.showClass,
                      kInnerShowClass, title + L" - [" + deck + L"]", WS_POPUP,
                      monitorArea(standIn.options.monitor));
}

/// Destroys the windows whose deck or show is not `alive`, and repaints the others.
template <typename Alive>
void dropDead(std::map<int, HWND>& windows, Alive&& alive) {
  std::erase_if(windows, [&](const auto& entry) {
    if (alive(entry.first)) return InvalidateRect(entry.second, nullptr, FALSE), false;
    DestroyWindow(entry.second);
    return true;
  });
}

}  // namespace

DeckWindows::DeckWindows(const Options& options) {
  registerWindowClass(options.editingClass.c_str(), editingProcedure);
  registerWindowClass(options.showClass.c_str(), showProcedure);
  registerWindowClass(kInnerEditingClass, handleAny);
  registerWindowClass(kInnerShowClass, handleAny);
}

DeckWindows::~DeckWindows() {
  for (const auto& [id, window] : showing) DestroyWindow(window);
  for (const auto& [id, window] : editing) DestroyWindow(window);
}

void DeckWindows::follow(StandIn& standIn) {
  // While windows are created and destroyed, commands of other processes are dispatched and may
  // call this again; the outer call then does another round.
  changed = true;
  if (std::exchange(following, true)) return;
  while (std::exchange(changed, false)) followOnce(standIn);
  following = false;
}

void DeckWindows::followOnce(StandIn& standIn) {
  Model& model = standIn.model;
  dropDead(showing, [&](int id) { return model.show(id) != nullptr; });
  dropDead(editing, [&](int id) { return model.deck(id) != nullptr; });
  // By index and with copies: the lists may change meanwhile.
  for (size_t i = 0; i < model.decks.size(); ++i) {
    const Deck deck = model.decks[i];
    if (!editing.contains(deck.id)) editing[deck.id] = createEditing(standIn, deck);
  }
  for (size_t i = 0; i < model.shows.size(); ++i) {
    const Show show = model.shows[i];
    if (!showing.contains(show.id)) showing[show.id] = createShow(standIn, show);
  }
}

HWND DeckWindows::ofShow(int showId) const {
  const auto found = showing.find(showId);
  return found == showing.end() ? nullptr : found->second;
}

}  // namespace mrl::standin

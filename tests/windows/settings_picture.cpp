#include "windows/settings_picture.h"

#include <algorithm>

#include "base/wide_win.h"
#include "settings_window/control_look.h"
#include "settings_window/layout.h"
#include "settings_window/qr_code.h"
#include "settings_window/window_look.h"
#include "windows/top_windows.h"

namespace mrl {

using standin::waitUntil;

namespace {

Size sizeOf(const Rect& rect) { return {rect.width(), rect.height()}; }

RECT clientOnScreen(HWND window) {
  RECT rect{};
  GetClientRect(window, &rect);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

std::wstring listRow(HWND list, size_t index) {
  std::wstring text(static_cast<size_t>(ask(list, LB_GETTEXTLEN, index)), L'\0');
  ask(list, LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
  return text;
}

/// The placeholder text of an empty box.
std::wstring cueOf(const Control& row) { return row.cue ? wideFrom(row.cue) : std::wstring(); }

uint32_t greyText() {
  const COLORREF grey = GetSysColor(COLOR_GRAYTEXT);
  return RGB(GetBValue(grey), GetGValue(grey), GetRValue(grey));
}

/// The DrawTextW format of the system's static control.
UINT formatOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::Caption: return DT_SINGLELINE | DT_VCENTER;
    case ControlKind::TimerLine: return DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;
    default: return DT_WORDBREAK | DT_EXPANDTABS;
  }
}

}  // namespace

/// All at once: a picture needs hundreds, and asks nothing more of the program meanwhile.
SettingsPicture::Handles SettingsPicture::handlesNow() const {
  Handles now;
  now.window = window();
  now.pane = pane();
  now.page = page();
  EnumChildWindows(
      now.window,
      [](HWND child, LPARAM parameter) -> BOOL {
        auto& found = *reinterpret_cast<Handles*>(parameter);
        found.controls.emplace(GetDlgCtrlID(child), child);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&now));
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(now.window, nullptr), &info);
  now.focus = info.hwndFocus;
  return now;
}

void SettingsPicture::giveFocus(int id) const {
  const DWORD thread = GetWindowThreadProcessId(window(), nullptr);
  ASSERT_TRUE(AttachThreadInput(GetCurrentThreadId(), thread, TRUE));
  SetFocus(control(id));
  AttachThreadInput(GetCurrentThreadId(), thread, FALSE);
  ASSERT_TRUE(isFocused(id));
}

Rect SettingsPicture::outerRect(HWND child) const {
  RECT rect{};
  GetWindowRect(child, &rect);
  MapWindowPoints(nullptr, handles.window, reinterpret_cast<POINT*>(&rect), 2);
  return {rect.left, rect.top, rect.right, rect.bottom};
}

Rect SettingsPicture::clientRect(HWND child) const {
  RECT rect{};
  GetClientRect(child, &rect);
  MapWindowPoints(child, handles.window, reinterpret_cast<POINT*>(&rect), 2);
  return {rect.left, rect.top, rect.right, rect.bottom};
}

Rect SettingsPicture::seenOf(const Control& row, const Rect& rect) const {
  if (!isOnPane(row)) return rect;
  const Rect seen = clientRect(handles.pane);
  return {std::max(rect.left, seen.left), std::max(rect.top, seen.top),
          std::min(rect.right, seen.right), std::min(rect.bottom, seen.bottom)};
}

void SettingsPicture::enter(ExpectedPicture& picture, const Control& row, const Rect& rect) const {
  picture.enter(std::to_string(row.id), {rect.left, rect.top}, seenOf(row, rect));
}

ControlState SettingsPicture::stateOf(int id) const {
  const HWND target = handle(id);
  ControlState state{.id = id,
                     .size = sizeOf(clientRect(target)),
                     .text = u16From(textOf(target)),
                     .isEnabled = IsWindowEnabled(target) != FALSE,
                     .isHovered = GetPropW(target, L"Marlune.Hover") != nullptr,
                     .isFocused = handles.focus == target,
                     .isActive = GetPropW(target, L"Marlune.Active") != nullptr ||
                                 id == kFirstSection + handles.page};
  const Control* row = findControl(id);
  if (row->kind != ControlKind::Combo) {
    state.isChecked = ask(target, BM_GETCHECK) == BST_CHECKED;
    state.isPressed = (ask(target, BM_GETSTATE) & BST_PUSHED) != 0;
  }
  if (const auto box = colourBoxOf(id)) state.colourText = u16From(textOf(handle(*box)));
  return state;
}

void SettingsPicture::drawStatic(ExpectedPicture& picture, const Control& row) const {
  const Rect rect = outerRect(handle(row.id));
  enter(picture, row, rect);
  const Rect whole = wholeOf(sizeOf(rect));
  picture.paint({Area{whole, kWhite}});
  const ChildColours colours = childColours(ColourAsker::Static, {.id = row.id});
  // A disabled static control is drawn in the system's grey.
  picture.write(textOf(handle(row.id)), whole, faceOf(row.id),
                IsWindowEnabled(handle(row.id)) != FALSE ? colours.text : greyText(),
                formatOf(row.kind));
}

void SettingsPicture::drawBox(ExpectedPicture& picture, const Control& row,
                              const KnownState& known) const {
  const HWND box = handle(row.id);
  const bool isReadOnly = row.kind == ControlKind::AddressBox;
  const Rect outer = outerRect(box);
  enter(picture, row, outer);
  picture.paint(drawBoxFrame({.size = sizeOf(outer),
                              .isReadOnly = isReadOnly,
                              .isInvalid = GetPropW(box, L"Marlune.Invalid") != nullptr,
                              .isFocused = handles.focus == box},
                             dpi()));
  const Rect client = clientRect(box);
  picture.enter(std::to_string(row.id) + " inside", {client.left, client.top}, seenOf(row, client));
  const Rect whole = wholeOf(sizeOf(client));
  picture.paint({Area{whole, isReadOnly ? kReadOnlyFill : kWhite}});
  writeInBox(picture, row);
  if (handles.focus == box || row.id == known.boxInPieces) picture.leaveOut(whole);
}

void SettingsPicture::writeInBox(ExpectedPicture& picture, const Control& row) const {
  const std::wstring held = textOf(handle(row.id));
  const bool showsCue = held.empty();
  const ChildColours colours =
      childColours(ColourAsker::Box, {.id = row.id,
                                      .isEnabled = IsWindowEnabled(handle(row.id)) != FALSE,
                                      .isReadOnly = row.kind == ControlKind::AddressBox});
  const uint32_t colour =
      showsCue || IsWindowEnabled(handle(row.id)) == FALSE ? greyText() : colours.text;
  picture.writeAsBox(showsCue ? cueOf(row) : held, faceOf(row.id), colour);
}

void SettingsPicture::drawList(ExpectedPicture& picture) const {
  const HWND list = handle(kFileList);
  const Rect client = clientRect(list);
  const Control& row = *findControl(kFileList);
  picture.enter("scroll bar of the list", {}, seenOf(row, outerRect(list)));
  picture.leaveOut(outerRect(list));
  enter(picture, row, client);
  const auto count = static_cast<int>(ask(list, LB_GETCOUNT));
  if (count == 0) return picture.paint(drawEmptyList(sizeOf(client), dpi(), handles.focus == list));
  picture.paint({Area{wholeOf(sizeOf(client)), kWhite}});
  const auto top = static_cast<int>(ask(list, LB_GETTOPINDEX));
  const auto selected = static_cast<int>(ask(list, LB_GETCURSEL));
  const int height = scaled(kFileRowUnits);
  for (int i = top; i < count && (i - top) * height < client.height(); ++i) {
    const Rect place{0, (i - top) * height, client.width(), (i - top + 1) * height};
    const bool hasCursor = handles.focus == list && i == ask(list, LB_GETCARETINDEX);
    picture.paint(drawFileRow(place, u16From(listRow(list, static_cast<size_t>(i))), i == selected,
                              dpi(), hasCursor));
  }
}

void SettingsPicture::drawHost(ExpectedPicture& picture, const KnownState& known) const {
  const HWND host = handle(kPreviewHost);
  const Control& row = *findControl(kPreviewHost);
  picture.enter("scroll bars of the host", {}, seenOf(row, outerRect(host)));
  picture.leaveOut(outerRect(host));
  const Rect client = clientRect(host);
  enter(picture, row, client);
  picture.paint(drawPreviewHost(sizeOf(client), known.isTextAlone));
  const Rect clock = outerRect(handle(kPreview));
  picture.leaveOut({clock.left - client.left, clock.top - client.top, clock.right - client.left,
                    clock.bottom - client.top});
}

void SettingsPicture::drawOne(ExpectedPicture& picture, const Control& row,
                              const KnownState& known) const {
  switch (row.kind) {
    case ControlKind::Tabs:
    case ControlKind::Preview: return;
    case ControlKind::Section:
    case ControlKind::Button:
    case ControlKind::Check:
    case ControlKind::Radio:
    case ControlKind::Combo:
      enter(picture, row, clientRect(handle(row.id)));
      return picture.paint(drawControl(stateOf(row.id), dpi()));
    case ControlKind::NumberBox:
    case ControlKind::TextBox:
    case ControlKind::AddressBox: return drawBox(picture, row, known);
    case ControlKind::List: return drawList(picture);
    case ControlKind::PreviewHost: return drawHost(picture, known);
    case ControlKind::QrCode: {
      const Rect client = clientRect(handle(row.id));
      const std::wstring addresses = textOf(handle(kAddressBox));
      QrMatrix matrix;
      if (addresses.starts_with(L"http")) {
        (void)encodeQrCode(u16From(addresses.substr(0, addresses.find(L"\r\n"))), matrix);
      }
      enter(picture, row, client);
      return picture.paint(drawQrCode(sizeOf(client), matrix));
    }
    case ControlKind::StatusLine: {
      const Rect client = clientRect(handle(row.id));
      enter(picture, row, client);
      return picture.paint(
          drawStatusLine(sizeOf(client), u16From(textOf(handle(row.id))), known.hasUnsavedInput));
    }
    default: return drawStatic(picture, row);
  }
}

void SettingsPicture::drawAll(ExpectedPicture& picture, const KnownState& known) const {
  picture.enter("window", {}, wholeOf(clientSize()));
  picture.paint(drawWindow(clientSize(), handles.page, dpi()));
  picture.enter("scroll bar of the pane", {}, outerRect(handles.pane));
  picture.leaveOut(outerRect(handles.pane));
  const Rect seen = clientRect(handles.pane);
  picture.enter("pane", {seen.left, seen.top}, seen);
  const PageLayout layout = layOut(clientSize(), dpi(), handles.page, scrollPosition());
  picture.paint(drawPane(sizeOf(seen), layout.cards, dpi()));
  for (const Control& row : allControls()) {
    const Rect place = seenOf(row, outerRect(handle(row.id)));
    if (IsWindowVisible(handle(row.id)) && place.width() > 0 && place.height() > 0)
      drawOne(picture, row, known);
  }
}

std::string SettingsPicture::differencesNow(const KnownState& known, bool keepPictures) {
  handles = handlesNow();
  ExpectedPicture expected(clientSize(), dpi());
  drawAll(expected, known);
  const Picture seen = pictureOf(clientOnScreen(window()));
  if (keepPictures) {
    const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    const std::wstring name =
        std::wstring(test.begin(), test.end()) + L"-" + std::to_wstring(page());
    EXPECT_TRUE(savePng(seen, name + L"-seen.png"));
    EXPECT_TRUE(savePng(expected.picture(), name + L"-expected.png"));
  }
  return expected.differencesFrom(seen);
}

void SettingsPicture::expectAsDrawn(const KnownState& known) {
  if (waitUntil([&] { return differencesNow(known, false).empty(); })) return;
  ADD_FAILURE() << "page " << page() << "\n" << differencesNow(known, true);
}

void SettingsPicture::expectDroppedAsDrawn(int combo) {
  const HWND list = visibleTopWindow(L"ComboLBox", GetWindowThreadProcessId(window(), nullptr));
  ASSERT_NE(list, nullptr);
  RECT client{};
  GetClientRect(list, &client);
  std::string differences;
  const auto looksRight = [&] {
    ExpectedPicture expected({client.right, client.bottom}, dpi());
    const int height = scaled(kComboRowUnits);
    const auto selected = static_cast<int>(ask(list, LB_GETCURSEL));
    int top = 0;
    for (const char16_t* const text : findControl(combo)->rows) {
      expected.paint(drawComboRow({0, top, client.right, top + height}, text,
                                  top == selected * height, dpi()));
      top += height;
    }
    EXPECT_EQ(top, client.bottom);
    differences = expected.differencesFrom(pictureOf(clientOnScreen(list)));
    return differences.empty();
  };
  EXPECT_TRUE(waitUntil(looksRight)) << differences;
}

}  // namespace mrl

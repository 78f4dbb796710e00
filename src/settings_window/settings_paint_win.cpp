#include "settings_window/settings_paint_win.h"

#include <objbase.h>
// After <objbase.h>, which it leans on.
#include <gdiplus.h>

#include <algorithm>

#include "core/wide_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "settings_window/settings_palette.h"
#include "settings_window/settings_shapes_win.h"

namespace mrl {
namespace {

constexpr wchar_t kFace[] = L"Segoe UI";
constexpr wchar_t kDigitsFace[] = L"Consolas";
constexpr int kFileRowUnits = 54;
constexpr int kComboRowUnits = 32;

constexpr struct {
  const wchar_t* title;
  const wchar_t* subtitle;
} kHeads[kPageCount] = {
    {L"计时与动作", L"设置计时规则，以及归零后发生的动作"},
    {L"悬浮窗外观", L"调整颜色、字体与尺寸，实时查看悬浮窗效果"},
    {L"阶段提醒", L"在关键时间点提醒，让演示节奏更从容"},
    {L"远程遥控", L"连接手机或电脑，远程控制计时与幻灯片"},
    {L"PPT控制", L"管理 PPT / WPS 文件与逐文件计时规则"},
};

class Paint {
 public:
  explicit Paint(HWND painted) : window(painted), dc(BeginPaint(painted, &paint)) {
    GetClientRect(window, &client);
  }
  Paint(const Paint&) = delete;
  Paint& operator=(const Paint&) = delete;
  ~Paint() { EndPaint(window, &paint); }

 private:
  HWND window;
  PAINTSTRUCT paint{};

 public:
  HDC dc;
  RECT client{};
};

HFONT fontFor(int pixels, int weight, const wchar_t* face) {
  return CreateFontW(-pixels, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                     OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                     DEFAULT_PITCH | FF_DONTCARE, face);
}

bool isTitle(int id) {
  const Control* control = findControl(id);
  return control && control->kind == ControlKind::Title;
}

bool isReadOnly(HWND edit) { return (GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY) != 0; }

std::wstring rowText(const DRAWITEMSTRUCT& item, UINT lengthMessage, UINT textMessage) {
  const LRESULT length = SendMessageW(item.hwndItem, lengthMessage, item.itemID, 0);
  if (length <= 0) return {};
  std::wstring text(static_cast<size_t>(length), L'\0');
  SendMessageW(item.hwndItem, textMessage, item.itemID, reinterpret_cast<LPARAM>(text.data()));
  return text;
}

}  // namespace

bool isWindowClass(HWND window, const wchar_t* name) {
  wchar_t buffer[80];
  return GetClassNameW(window, buffer, 80) != 0 && lstrcmpiW(buffer, name) == 0;
}

void SettingsLook::prepare(int windowDpi) {
  dpi = windowDpi;
  body.reset(fontFor(scale(14), FW_NORMAL, kFace));
  bodyStrong.reset(fontFor(scale(14), FW_SEMIBOLD, kFace));
  small.reset(fontFor(scale(12), FW_NORMAL, kFace));
  pageTitle.reset(fontFor(scale(26), FW_SEMIBOLD, kFace));
  sectionTitle.reset(fontFor(scale(17), FW_SEMIBOLD, kFace));
  digits.reset(fontFor(scale(25), FW_SEMIBOLD, kDigitsFace));
  if (gdiplus != 0) return;
  page.reset(CreateSolidBrush(systemColour(kPageFill)));
  white.reset(CreateSolidBrush(systemColour(kWhite)));
  readOnly.reset(CreateSolidBrush(systemColour(kReadOnlyFill)));
  Gdiplus::GdiplusStartupInput input;
  Gdiplus::GdiplusStartup(&gdiplus, &input, nullptr);
}

void SettingsLook::release() {
  for (Font* font : {&body, &bodyStrong, &small, &pageTitle, &sectionTitle, &digits}) font->reset();
  for (Brush* brush : {&page, &white, &readOnly}) brush->reset();
  if (gdiplus != 0) Gdiplus::GdiplusShutdown(gdiplus);
  gdiplus = 0;
}

HFONT SettingsLook::fontOf(int id) const {
  if (id == kTimerLine) return bodyStrong.get();
  if (id == kMinutesBox || id == kSecondsBox) return digits.get();
  const Control* control = findControl(id);
  if (control && control->kind == ControlKind::Title) return sectionTitle.get();
  if (control && control->kind == ControlKind::Caption) return small.get();
  return body.get();
}

void SettingsLook::drawSidebar(HDC dc, int height) const {
  const auto area = [this](int left, int top, int right, int bottom) {
    return RECT{scale(left), scale(top), scale(right), scale(bottom)};
  };
  // From the bottom of the window.
  const auto foot = [&](int left, int above, int right, int until) {
    return RECT{scale(left), height - scale(above), scale(right), height - scale(until)};
  };
  fillRect(dc, {0, 0, scale(184), height}, kWhite);
  drawLine(dc, {scale(183), 0}, {scale(183), height}, kHairline, 1);
  DrawIconEx(dc, scale(20), scale(26), programIcon(scale(36)), scale(36), scale(36), 0, nullptr,
             DI_NORMAL);
  drawText(dc, L"Marlune", area(67, 25, 174, 52), sectionTitle.get(), kInk, kOneLine);
  drawText(dc, L"演示计时", area(68, 53, 174, 74), small.get(), kMuted, kOneLine);
  drawText(dc, L"控制模式", foot(20, 130, 168, 106), small.get(), kMuted, kOneLine);
  drawText(dc, L"Marlune 0.3.15", foot(20, 54, 176, 32), small.get(), kMuted, kOneLine);
  drawText(dc, L"by：Dorvane", foot(20, 30, 176, 8), small.get(), kMuted, kOneLine);
}

void SettingsLook::paintWindow(HWND window) const {
  const Paint paint(window);
  const HDC dc = paint.dc;
  const int width = paint.client.right;
  const int height = paint.client.bottom;
  fillRect(dc, paint.client, kPageFill);
  fillRect(dc, {scale(184), 0, width, scale(68)}, kWhite);
  fillRect(dc, {scale(184), height - scale(66), width, height}, kWhite);
  drawLine(dc, {scale(184), scale(68)}, {width, scale(68)}, kHairline, 1);
  drawLine(dc, {scale(184), height - scale(66)}, {width, height - scale(66)}, kHairline, 1);
  drawSidebar(dc, height);
  const auto& head = kHeads[form.page];
  const int right = width - scale(24);
  drawText(dc, head.title, {scale(216), scale(83), right, scale(121)}, pageTitle.get(), kInk,
           kOneLine);
  drawText(dc, head.subtitle, {scale(216), scale(126), right, scale(150)}, body.get(), kMuted,
           kOneLine);
}

void SettingsLook::paintPane(HWND window) const {
  const Paint paint(window);
  fillRect(paint.dc, paint.client, kPageFill);
  for (const Rect& card : form.cards) {
    roundRect(paint.dc, {card.left, card.top, card.right, card.bottom}, scale(12), kWhite,
              kCardLine, 1);
  }
}

void SettingsLook::paintPreviewHost(HWND window) const {
  const Paint paint(window);
  fillRect(paint.dc, paint.client, form.settings.transparent ? kHostDark : kHostLight);
}

void SettingsLook::paintQrCode(HWND window, const QrMatrix& matrix) {
  const Paint paint(window);
  FillRect(paint.dc, &paint.client, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  if (matrix.empty()) return;
  const auto black = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
  const QrPlace place =
      placeQrCode(paint.client.right, paint.client.bottom, static_cast<int>(matrix.size()));
  const int side = place.modulePixels;
  int top = place.top;
  for (const std::vector<bool>& row : matrix) {
    int left = place.left;
    for (const bool dark : row) {
      const RECT module{left, top, left + side, top + side};
      if (dark) FillRect(paint.dc, &module, black);
      left += side;
    }
    top += side;
  }
}

void SettingsLook::paintEditFrame(HWND window) const {
  RECT outer{};
  GetWindowRect(window, &outer);
  RECT client{};
  GetClientRect(window, &client);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
  OffsetRect(&client, -outer.left, -outer.top);
  const RECT whole{0, 0, outer.right - outer.left, outer.bottom - outer.top};
  const bool invalid = GetPropW(window, kInvalidProperty) != nullptr;
  const bool focused = GetFocus() == window;
  const uint32_t line = invalid ? kInvalidLine : focused ? kAccent : kHairline;
  const HDC dc = GetWindowDC(window);
  ExcludeClipRect(dc, client.left, client.top, client.right, client.bottom);
  fillRect(dc, whole, kWhite);
  roundRect(dc, whole, scale(7), isReadOnly(window) ? kReadOnlyFill : kWhite, line,
            invalid || focused ? static_cast<float>(scale(2)) : 1);
  ReleaseDC(window, dc);
}

void SettingsLook::paintEmptyList(HWND window) const {
  const HDC dc = GetDC(window);
  RECT client{};
  GetClientRect(window, &client);
  fillRect(dc, client, kWhite);
  const int middle = client.bottom / 2;
  const auto band = [&](int from, int to) {
    return RECT{scale(8), middle + scale(from), client.right - scale(8), middle + scale(to)};
  };
  drawText(dc, L"尚未添加演示文稿", band(-28, 2), bodyStrong.get(), kInk, kOneLine | DT_CENTER);
  drawText(dc, L"选择文件夹后，PPT / WPS 文件将显示在这里", band(4, 36), small.get(), kMuted,
           kOneLine | DT_CENTER);
  ReleaseDC(window, dc);
}

bool SettingsLook::drawItem(const DRAWITEMSTRUCT& item) const {
  if (item.CtlType == ODT_COMBOBOX) {
    drawComboRow(item);
    return true;
  }
  if (item.CtlType != ODT_LISTBOX || item.CtlID != kFileList) return false;
  if (item.itemID != static_cast<UINT>(-1)) drawFileRow(item);
  return true;
}

bool SettingsLook::measureItem(MEASUREITEMSTRUCT& item) const {
  if (item.CtlType == ODT_MENU) return false;
  item.itemHeight =
      static_cast<UINT>(scale(item.CtlID == kFileList ? kFileRowUnits : kComboRowUnits));
  return true;
}

void SettingsLook::drawComboRow(const DRAWITEMSTRUCT& item) const {
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  fillRect(item.hDC, item.rcItem, selected ? kReadOnlyFill : kWhite);
  if (item.itemID == static_cast<UINT>(-1)) return;
  RECT area = item.rcItem;
  area.left += scale(12);
  drawText(item.hDC, rowText(item, CB_GETLBTEXTLEN, CB_GETLBTEXT), area, body.get(),
           selected ? kAccent : kInk, kOneLine);
}

void SettingsLook::drawFileRow(const DRAWITEMSTRUCT& item) const {
  const HDC dc = item.hDC;
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  const std::wstring text = rowText(item, LB_GETTEXTLEN, LB_GETTEXT);
  const bool excluded = text.starts_with(L"[跳过计时]");
  const size_t prefix = text.find(L"] ");
  const std::wstring name = prefix == std::wstring::npos ? text : text.substr(prefix + 2);
  const RECT row = item.rcItem;
  const int boxLeft = row.right - scale(128);
  fillRect(dc, row, selected ? kSelectFill : kWhite);
  drawGlyph(dc, {scale(14), row.top + scale(16), scale(36), row.top + scale(38)}, kPageCount - 1,
            selected ? kAccent : kMuted);
  const int nameRight = boxLeft - scale(12);
  drawText(dc, name, {scale(48), row.top + scale(5), nameRight, row.top + scale(30)},
           bodyStrong.get(), kInk, kOneLine);
  drawText(dc, excluded ? L"已排除" : L"正常计时",
           {scale(48), row.top + scale(30), nameRight, row.bottom}, small.get(),
           excluded ? kExcludedText : kMuted, kOneLine);
  const int boxTop = (row.top + row.bottom - scale(18)) / 2;
  roundRect(dc, {boxLeft, boxTop, boxLeft + scale(18), boxTop + scale(18)}, scale(4),
            excluded ? kAccent : kWhite, excluded ? kAccent : kMuted, 1);
  if (excluded) {
    const auto at = [&](int x, int y) { return POINT{boxLeft + scale(x), boxTop + scale(y)}; };
    drawLine(dc, at(4, 9), at(7, 12), kWhite, scale(2));
    drawLine(dc, at(7, 12), at(14, 5), kWhite, scale(2));
  }
  drawText(dc, L"跳过计时", {boxLeft + scale(26), row.top, row.right - scale(8), row.bottom},
           body.get(), kInk, kOneLine);
}

HBRUSH SettingsLook::controlColours(UINT message, HDC dc, HWND control) const {
  const int id = GetDlgCtrlID(control);
  const bool enabled = IsWindowEnabled(control) != FALSE;
  if (message == WM_CTLCOLORSCROLLBAR) return page.get();
  // A read-only or disabled box asks as a static text does.
  if (message == WM_CTLCOLOREDIT || isWindowClass(control, L"EDIT")) {
    SetBkColor(dc, systemColour(isReadOnly(control) ? kReadOnlyFill : kWhite));
    SetTextColor(dc, systemColour(enabled ? kInk : kMuted));
    return isReadOnly(control) ? readOnly.get() : white.get();
  }
  if (message == WM_CTLCOLORLISTBOX) {
    SetBkColor(dc, systemColour(kWhite));
    SetTextColor(dc, systemColour(enabled ? kInk : kMuted));
    return white.get();
  }
  SetBkMode(dc, TRANSPARENT);
  const bool strong = id == kTimerLine || isTitle(id);
  const bool warns = id == kStatusText && form.settingsDirty;
  SetTextColor(dc, systemColour(warns ? kWarnText : strong ? kInk : kMuted));
  return white.get();
}

void SettingsLook::paintControl(HWND window) const {
  const Paint paint(window);
  const Control* control = findControl(GetDlgCtrlID(window));
  if (!control) return;
  switch (control->kind) {
    case ControlKind::Section: return paintSection(window, paint.dc, paint.client);
    case ControlKind::Radio: return paintRadio(window, paint.dc, paint.client);
    case ControlKind::Check: return paintCheck(window, paint.dc, paint.client);
    case ControlKind::Combo: return paintCombo(window, paint.dc, paint.client);
    default: return paintButton(window, paint.dc, paint.client);
  }
}

}  // namespace mrl

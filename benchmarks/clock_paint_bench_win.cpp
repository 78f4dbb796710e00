// The CPU time of one paint of the clock, compared with the least that shows the same picture in a
// layered window: bare calls of Direct2D that keep all they can from one paint to the next. The
// first argument is the number of rounds.
//
// Under Wine "csmt" (REG_DWORD) in HKCU\Software\Wine\Direct3D must be 0. Otherwise the painting
// thread waits for Wine's drawing thread in a busy loop, and that is what gets measured.
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string_view>
#include <vector>

#include "base/wide_win.h"
#include "overlay/clock_geometry.h"
#include "overlay/clock_painter_win.h"

namespace mrl {
namespace {

constexpr int kWarmUpPaints = 20;  // the first ones create targets and load fonts
constexpr int kPaints = 200;       // CPU times have a resolution of 10 ms

uint64_t nsOf(const FILETIME& time) {
  return ((uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime) * 100;
}

/// Sums all threads: the drawing library has threads of its own.
uint64_t processorNs() {
  FILETIME created;
  FILETIME ended;
  FILETIME kernel;
  FILETIME user;
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  return nsOf(kernel) + nsOf(user);
}

D2D1_COLOR_F colourOf(uint32_t rgb, float alpha) {
  const ColourF colour = colourFrom(rgb, alpha);
  return {colour.red, colour.green, colour.blue, colour.alpha};
}

/// The clock with the default settings. Nothing is checked.
class BareClock {
 public:
  BareClock() {
    D2D1CreateFactory(D2D1_FACTORY_TYPE_SINGLE_THREADED, __uuidof(ID2D1Factory), nullptr,
                      reinterpret_cast<void**>(drawing.put()));
    DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory),
                        reinterpret_cast<IUnknown**>(fonts.put()));
    const D2D1_RENDER_TARGET_PROPERTIES properties{
        D2D1_RENDER_TARGET_TYPE_SOFTWARE,
        {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED},
        96,
        96,
        D2D1_RENDER_TARGET_USAGE_NONE,
        D2D1_FEATURE_LEVEL_DEFAULT};
    drawing->CreateDCRenderTarget(&properties, target.put());
    const D2D1_COLOR_F ground = colourOf(settings.background, 0.8F);
    target->CreateSolidColorBrush(&ground, nullptr, fill.put());
    const D2D1_COLOR_F ink = colourOf(settings.foreground, 1);
    target->CreateSolidColorBrush(&ink, nullptr, letters.put());
    target->SetTextAntialiasMode(D2D1_TEXT_ANTIALIAS_MODE_GRAYSCALE);
    fonts->CreateTextFormat(L"Arial", nullptr, DWRITE_FONT_WEIGHT_BOLD, DWRITE_FONT_STYLE_NORMAL,
                            DWRITE_FONT_STRETCH_NORMAL, 0.72F * 82, L"zh-CN", format.put());
    format->SetWordWrapping(DWRITE_WORD_WRAPPING_NO_WRAP);
    format->SetTextAlignment(DWRITE_TEXT_ALIGNMENT_CENTER);
    format->SetParagraphAlignment(DWRITE_PARAGRAPH_ALIGNMENT_CENTER);
  }

  void paint(HWND window, std::u16string_view text) {
    if (!bitmap.ensure(kDefaultClockUnits)) return;
    const auto [width, height] = kDefaultClockUnits;
    const RECT box{0, 0, width, height};
    const D2D1_RECT_F area{0, 0, static_cast<float>(width), static_cast<float>(height)};
    const D2D1_COLOR_F clear{};
    target->BindDC(bitmap.dc(), &box);
    target->BeginDraw();
    target->Clear(&clear);
    target->FillRoundedRectangle({area, kCornerRadius, kCornerRadius}, fill.get());
    target->DrawText(wideFrom(text).c_str(), static_cast<UINT32>(text.size()), format.get(), area,
                     letters.get());
    target->EndDraw();
    SIZE extent{width, height};
    POINT source{0, 0};
    BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    UpdateLayeredWindow(window, nullptr, nullptr, &extent, bitmap.dc(), &source, 0, &blend,
                        ULW_ALPHA);
  }

  [[nodiscard]] const ClockBitmap& picture() const { return bitmap; }

 private:
  Settings settings;
  ComRef<ID2D1Factory> drawing;
  ComRef<IDWriteFactory> fonts;
  ClockBitmap bitmap;
  ComRef<ID2D1DCRenderTarget> target;
  ComRef<ID2D1SolidColorBrush> fill;
  ComRef<ID2D1SolidColorBrush> letters;
  ComRef<IDWriteTextFormat> format;
};

bool isSamePicture(const ClockBitmap& one, const ClockBitmap& other) {
  for (int y = 0; y < one.size().height; ++y) {
    for (int x = 0; x < one.size().width; ++x) {
      if (one.pixel(x, y) != other.pixel(x, y)) return false;
    }
  }
  return one.size() == other.size();
}

uint64_t nsPerPaint(const std::function<void()>& paint) {
  for (int i = 0; i < kWarmUpPaints; ++i) paint();
  const uint64_t before = processorNs();
  for (int i = 0; i < kPaints; ++i) paint();
  return (processorNs() - before) / kPaints;
}

void print(const char* who, std::vector<uint64_t> rounds) {
  std::ranges::sort(rounds);
  std::printf("paint of the clock\t%s\t%llu\n", who,
              static_cast<unsigned long long>(rounds[rounds.size() / 2]));
}

int run(int roundCount) {
  const HWND window = CreateWindowExW(
      WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_LAYERED, L"STATIC", L"", WS_POPUP, 40, 40,
      kDefaultClockUnits.width, kDefaultClockUnits.height, nullptr, nullptr, nullptr, nullptr);
  ShowWindow(window, SW_SHOWNOACTIVATE);
  ClockPainterWin painter;
  if (!painter.createFactories()) return 1;
  const Settings settings;
  const ClockPicture picture{.settings = settings, .text = u"15:00"};
  BareClock bare;
  std::vector<uint64_t> ours;
  std::vector<uint64_t> least;
  for (int round = 0; round < roundCount; ++round) {
    ours.push_back(nsPerPaint([&] { painter.paintClock(window, picture); }));
    least.push_back(nsPerPaint([&] { bare.paint(window, picture.text); }));
  }
  if (!isSamePicture(painter.bitmap(), bare.picture())) {
    std::fprintf(stderr, "the bare clock shows another picture\n");
    return 1;
  }
  print("marlune", ours);
  print("bare Direct2D", least);
  DestroyWindow(window);
  return 0;
}

}  // namespace
}  // namespace mrl

int main(int count, char** arguments) { return mrl::run(count > 1 ? std::atoi(arguments[1]) : 3); }

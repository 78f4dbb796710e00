#include "windows/picture.h"

// Needs <windows.h> first.
#include <objbase.h>
// Needs <objbase.h> first.
#include <gdiplus.h>

#include <filesystem>

#include "windows/standin_client.h"

namespace mrl {
namespace {

BITMAPINFO infoOf(Size size) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.width;
  info.bmiHeader.biHeight = -size.height;  // negative: top-down
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  return info;
}

/// GDI+'s PNG encoder.
constexpr CLSID kPngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

/// Never shut down: under Wine a test's output is lost once GDI+ is shut down.
void startGdiPlus() {
  static ULONG_PTR token = 0;
  const Gdiplus::GdiplusStartupInput input;
  if (token == 0) Gdiplus::GdiplusStartup(&token, &input, nullptr);
}

}  // namespace

Picture pictureOf(const RECT& screenRect) {
  Picture picture{{static_cast<int>(screenRect.right - screenRect.left),
                   static_cast<int>(screenRect.bottom - screenRect.top)},
                  {}};
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const BITMAPINFO info = infoOf(picture.size);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, picture.size.width, picture.size.height, screen, screenRect.left,
         screenRect.top, SRCCOPY);
  GdiFlush();
  const auto* first = static_cast<const uint32_t*>(bits);
  picture.pixels.assign(first, first + static_cast<size_t>(picture.size.width) *
                                           static_cast<size_t>(picture.size.height));
  for (uint32_t& pixel : picture.pixels) pixel &= 0xFFFFFF;
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return picture;
}

Picture settledPictureOf(const RECT& screenRect) {
  constexpr ULONGLONG kStillMs = 100;  // a program that is busy paints late
  Picture last = pictureOf(screenRect);
  ULONGLONG sinceMs = GetTickCount64();
  (void)standin::waitUntil([&] {
    Picture now = pictureOf(screenRect);
    if (now != last) sinceMs = GetTickCount64();
    last = std::move(now);
    return GetTickCount64() - sinceMs >= kStillMs;
  });
  return last;
}

std::wstring pictureFolder() { return standin::executableFolder() + L"..\\windows-shots\\"; }

bool savePng(const Picture& picture, const std::wstring& name) {
  std::error_code ignored;
  std::filesystem::create_directories(pictureFolder(), ignored);
  startGdiPlus();
  const int width = picture.size.width;
  std::vector<uint32_t> pixels = picture.pixels;
  Gdiplus::Bitmap bitmap(width, picture.size.height, width * 4, PixelFormat32bppRGB,
                         reinterpret_cast<BYTE*>(pixels.data()));
  return bitmap.Save((pictureFolder() + name).c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
}

}  // namespace mrl

// The bitmap behind the clock: see clock_bitmap_win.h.
#include "overlay/clock_bitmap_win.h"

namespace mrl {

ClockBitmap::~ClockBitmap() { drop(); }

bool ClockBitmap::ensure(Size wanted) {
  if (bitmap && bitmapSize == wanted) return true;
  drop();
  if (!context) {
    context.reset(CreateCompatibleDC(nullptr));
    if (!context) return false;
    oldBitmap = GetCurrentObject(context.get(), OBJ_BITMAP);
  }
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = wanted.width;
  info.bmiHeader.biHeight = -wanted.height;  // negative: top-down rows
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* memory = nullptr;
  bitmap.reset(CreateDIBSection(context.get(), &info, DIB_RGB_COLORS, &memory, nullptr, 0));
  if (!bitmap) return false;
  SelectObject(context.get(), bitmap.get());
  bitmapSize = wanted;
  pixels = static_cast<const uint32_t*>(memory);
  return true;
}

void ClockBitmap::drop() {
  if (!bitmap) return;
  SelectObject(context.get(), oldBitmap);
  bitmap.reset();
  bitmapSize = {};
  pixels = nullptr;
}

uint32_t ClockBitmap::pixel(int x, int y) const {
  GdiFlush();
  return pixels[static_cast<size_t>(y) * bitmapSize.width + x];
}

}  // namespace mrl

// The bitmap of a layered window: 32 bits with premultiplied alpha, and the memory device context
// that it is selected into.
#pragma once

#include <windows.h>

#include <cstdint>

#include "base/geometry.h"
#include "base/unique_handle.h"

namespace mrl {

/// UI thread only. Created on first use, recreated when the size changes.
class ClockBitmap {
 public:
  ClockBitmap() = default;
  ClockBitmap(const ClockBitmap&) = delete;
  ClockBitmap& operator=(const ClockBitmap&) = delete;
  ~ClockBitmap();

  /// The contents are undefined after a change of size. On failure returns false, without a bitmap.
  [[nodiscard]] bool ensure(Size wanted);

  HDC dc() const { return context.get(); }
  Size size() const { return bitmapSize; }
  /// 0xAARRGGBB, colours multiplied by alpha. REQUIRES: a bitmap, and x, y inside it.
  uint32_t pixel(int x, int y) const;

 private:
  struct ContextTraits {
    static HDC none() { return nullptr; }
    static void close(HDC context) { DeleteDC(context); }
  };
  struct BitmapTraits {
    static HBITMAP none() { return nullptr; }
    static void close(HBITMAP bitmap) { DeleteObject(bitmap); }
  };

  void drop();

  UniqueHandle<ContextTraits> context;
  HGDIOBJ oldBitmap = nullptr;  // the context's own; reselected before ours is deleted
  UniqueHandle<BitmapTraits> bitmap;
  Size bitmapSize;
  const uint32_t* pixels = nullptr;  // the bitmap's memory
};

}  // namespace mrl

// Owners of GDI objects, and helpers shared by all our painters.
#pragma once

#include <windows.h>

#include <string_view>
#include <vector>

#include "base/geometry.h"
#include "base/unique_handle.h"
#include "base/wide_win.h"

namespace mrl {

struct FontTraits {
  static HFONT none() { return nullptr; }
  static void close(HFONT font) { DeleteObject(font); }
};
using Font = UniqueHandle<FontTraits>;

/// `units` is the height in 1/96 inch.
inline Font makeFont(std::u16string_view family, int units, int weight, int dpi) {
  return Font(CreateFontW(-toPixels(units, dpi), 0, 0, 0, weight, FALSE, FALSE, FALSE,
                          DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                          CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_DONTCARE,
                          wideFrom(family).c_str()));
}

/// Restores the state of a device context on destruction.
class SavedContext {
 public:
  explicit SavedContext(HDC context) : dc(context), saved(SaveDC(context)) {}
  SavedContext(const SavedContext&) = delete;
  SavedContext& operator=(const SavedContext&) = delete;
  ~SavedContext() { RestoreDC(dc, saved); }

  /// Selects `object` and deletes it on destruction, once the context is restored: the system
  /// refuses to delete a selected object.
  void selectAndOwn(HGDIOBJ object) {
    owned.emplace_back(object);
    SelectObject(dc, object);
  }

 private:
  struct ObjectTraits {
    static HGDIOBJ none() { return nullptr; }
    static void close(HGDIOBJ object) { DeleteObject(object); }
  };

  HDC dc;
  int saved;
  std::vector<UniqueHandle<ObjectTraits>> owned;
};

inline RECT systemRect(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

}  // namespace mrl

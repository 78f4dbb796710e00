#include "windows/expected_picture.h"

// Needs <windows.h> first.
#include <usp10.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

#include "base/wide_win.h"
#include "resources/resource_ids.h"
#include "settings_window/control_look.h"
#include "settings_window/section_glyph.h"
#include "windows/shape_distance.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

COLORREF reversed(uint32_t rgb) { return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16; }

RECT systemRect(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

Rect common(const Rect& a, const Rect& b) {
  const Rect both{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                  std::min(a.bottom, b.bottom)};
  return both.width() > 0 && both.height() > 0 ? both : Rect{};
}

bool always(float /*x*/, float /*y*/) { return true; }

struct Found {
  int count = 0;
  Point first;
};

}  // namespace

ExpectedPicture::ExpectedPicture(Size pictureSize, int pictureDpi)
    : size(pictureSize), dpi(pictureDpi) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.width;
  info.bmiHeader.biHeight = -size.height;  // negative: top-down
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  memory = CreateCompatibleDC(nullptr);
  void* bits = nullptr;
  bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  pixels = static_cast<uint32_t*>(bits);
  bitmapBefore = SelectObject(memory, bitmap);
  const size_t count = static_cast<size_t>(size.width) * static_cast<size_t>(size.height);
  kinds.resize(count, Kind::Exact);
  owners.resize(count);
  enter("picture", {}, {0, 0, size.width, size.height});
}

ExpectedPicture::~ExpectedPicture() {
  SelectObject(memory, bitmapBefore);
  DeleteObject(bitmap);
  DeleteDC(memory);
  for (const auto& [face, made] : fonts) DeleteObject(made);
}

void ExpectedPicture::enter(const std::string& region, Point from, const Rect& within) {
  origin = from;
  clip = common(within, {0, 0, size.width, size.height});
  regions.push_back(region);
  const HRGN area = CreateRectRgn(clip.left, clip.top, clip.right, clip.bottom);
  SelectClipRgn(memory, area);
  DeleteObject(area);
  for (int y = clip.top; y < clip.bottom; ++y) {
    for (int x = clip.left; x < clip.right; ++x) {
      owners[index(x, y)] = static_cast<uint16_t>(regions.size() - 1);
    }
  }
}

size_t ExpectedPicture::index(int x, int y) const {
  return static_cast<size_t>(y) * static_cast<size_t>(size.width) + static_cast<size_t>(x);
}

uint32_t& ExpectedPicture::at(int x, int y) const { return pixels[index(x, y)]; }

/// `rect` in picture coordinates, clipped.
Rect ExpectedPicture::visible(const Rect& rect) const {
  return common(clip, {rect.left + origin.x, rect.top + origin.y, rect.right + origin.x,
                       rect.bottom + origin.y});
}

void ExpectedPicture::paint(const Drawing& drawing) {
  GdiFlush();
  for (const Shape& shape : drawing) {
    std::visit([this](const auto& each) { (*this)(each); }, shape);
    GdiFlush();
  }
}

void ExpectedPicture::fill(const Rect& around, uint32_t colour, const Coverage& distance,
                           const std::function<bool(float, float)>& isCurved) {
  const Rect area = visible(insetBy(around, -3));
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) {
      const float middleX = static_cast<float>(x - origin.x) + 0.5F;
      const float middleY = static_cast<float>(y - origin.y) + 0.5F;
      const float away = distance(middleX, middleY);
      if (away > kNearEdge) continue;
      const float part = std::clamp(0.5F - away, 0.0F, 1.0F);
      if (part >= 0.5F) at(x, y) = colour;
      const bool inPart = part > 0.01F && part < 0.99F;
      Kind& kind = kinds[index(x, y)];
      if (inPart) {
        kind = Kind::SoftInPart;
      } else if (std::abs(away) < kNearEdge && isCurved(middleX, middleY)) {
        kind = Kind::Soft;
      } else if (part >= 0.99F) {
        kind = Kind::Exact;
      }
    }
  }
}

void ExpectedPicture::operator()(const Area& area) {
  const Rect rect = visible(area.rect);
  for (int y = rect.top; y < rect.bottom; ++y) {
    for (int x = rect.left; x < rect.right; ++x) {
      at(x, y) = area.colour;
      kinds[index(x, y)] = Kind::Exact;
    }
  }
}

void ExpectedPicture::operator()(const RoundedRect& shape) {
  // An outline of one pixel covers the outermost pixels; a wider one extends inwards.
  const float inset = shape.outline ? static_cast<float>(shape.outlineWidth) / 2 : 0.5F;
  const Rect& rect = shape.rect;
  const RoundBox path{
      static_cast<float>(rect.left) + inset, static_cast<float>(rect.top) + inset,
      static_cast<float>(rect.right) - inset, static_cast<float>(rect.bottom) - inset,
      std::min({static_cast<float>(shape.radius), static_cast<float>(rect.width() - 1) / 2,
                static_cast<float>(rect.height() - 1) / 2})};
  const auto atCorner = [&](float x, float y) { return path.isAtCorner(x, y); };
  fill(
      rect, shape.fill, [&](float x, float y) { return path.distance(x, y); }, atCorner);
  if (!shape.outline) return;
  const float half = static_cast<float>(shape.outlineWidth) / 2;
  fill(
      rect, *shape.outline, [&](float x, float y) { return std::abs(path.distance(x, y)) - half; },
      atCorner);
}

void ExpectedPicture::operator()(const Ring& ring) {
  const float radius = static_cast<float>(ring.box.width()) / 2;
  const float half = static_cast<float>(ring.width) / 2;
  fill(
      ring.box, ring.colour,
      [&](float x, float y) {
        return std::abs(std::hypot(x - static_cast<float>(ring.box.left) - radius,
                                   y - static_cast<float>(ring.box.top) - radius) -
                        radius) -
               half;
      },
      always);
}

void ExpectedPicture::operator()(const Disc& disc) {
  const float radius = static_cast<float>(disc.box.width()) / 2;
  fill(
      disc.box, disc.colour,
      [&](float x, float y) {
        return std::hypot(x - static_cast<float>(disc.box.left) - radius,
                          y - static_cast<float>(disc.box.top) - radius) -
               radius;
      },
      always);
}

/// A straight line excludes its last pixel.
void ExpectedPicture::operator()(const Line& line) {
  const auto& [from, to, colour, width] = line;
  const Rect around{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x),
                    std::max(from.y, to.y)};
  if (width == 1 && from.y == to.y) {
    return (*this)(Area{{around.left, from.y, around.right, from.y + 1}, colour});
  }
  if (width == 1 && from.x == to.x) {
    return (*this)(Area{{from.x, around.top, from.x + 1, around.bottom}, colour});
  }
  // Coordinates of a slanted line refer to pixel centres.
  const auto middle = [](int pixel) { return static_cast<float>(pixel) + 0.5F; };
  fill(
      insetBy(around, -width), colour,
      [&](float x, float y) {
        return distanceToLine(x, y, middle(from.x), middle(from.y), middle(to.x), middle(to.y)) -
               static_cast<float>(width) / 2;
      },
      always);
}

void ExpectedPicture::operator()(const Glyph& glyph) {
  const float penWidth = std::max(static_cast<float>(glyph.square.width()) / 12, 1.4F);
  for (const Stroke& fraction : sectionGlyph(glyph.section)) {
    const Stroke stroke = inPixels(fraction, glyph.square);
    fill(
        glyph.square, glyph.colour,
        [&](float x, float y) { return distanceToStroke(x, y, stroke, penWidth); }, always);
  }
}

void ExpectedPicture::operator()(const Label& label) {
  if (label.isWrapped) return writeWrapped(label);
  write(wideFrom(label.text), label.rect, label.face, label.colour,
        DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX |
            (label.isCentred ? DT_CENTER : DT_LEFT));
}

/// The block of lines is centred vertically.
void ExpectedPicture::writeWrapped(const Label& label) {
  constexpr UINT kFormat = DT_WORDBREAK | DT_NOPREFIX;
  const std::wstring text = wideFrom(label.text);
  const HGDIOBJ before = SelectObject(memory, font(label.face));
  RECT needed = systemRect(label.rect);
  DrawTextW(memory, text.c_str(), -1, &needed, kFormat | DT_CALCRECT);
  SelectObject(memory, before);
  Rect lines = label.rect;
  lines.top += std::max((label.rect.height() - (needed.bottom - needed.top)) / 2, 0L);
  write(text, lines, label.face, label.colour, kFormat);
}

void ExpectedPicture::operator()(const FocusMark& mark) {
  SetViewportOrgEx(memory, origin.x, origin.y, nullptr);
  const RECT rect = systemRect(mark.rect);
  DrawFocusRect(memory, &rect);
  SetViewportOrgEx(memory, 0, 0, nullptr);
  const Rect outer = visible(mark.rect);
  const Rect inner = visible(insetBy(mark.rect, 1));
  for (int y = outer.top; y < outer.bottom; ++y) {
    for (int x = outer.left; x < outer.right; ++x) {
      const bool within = x >= inner.left && x < inner.right && y >= inner.top && y < inner.bottom;
      if (!within) kinds[index(x, y)] = Kind::Soft;
    }
  }
}

void ExpectedPicture::operator()(const ProgramIcon& icon) {
  const HMODULE image = LoadLibraryExW((standin::executableFolder() + L"marlune.exe").c_str(),
                                       nullptr, LOAD_LIBRARY_AS_DATAFILE);
  const auto [left, top, right, bottom] = icon.rect;
  const auto loaded =
      static_cast<HICON>(LoadImageW(image, MAKEINTRESOURCEW(MARLUNE_ICON), IMAGE_ICON, right - left,
                                    bottom - top, LR_DEFAULTCOLOR));
  DrawIconEx(memory, left + origin.x, top + origin.y, loaded, right - left, bottom - top, 0,
             nullptr, DI_NORMAL);
  DestroyIcon(loaded);
  FreeLibrary(image);
}

HFONT ExpectedPicture::font(Face face) {
  HFONT& made = fonts[face];
  if (made == nullptr) {
    const Typeface& type = kTypefaces[static_cast<size_t>(face)];
    made = CreateFontW(-toPixels(type.units, dpi), 0, 0, 0, type.weight, FALSE, FALSE, FALSE,
                       DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                       DEFAULT_PITCH | FF_DONTCARE, wideFrom(type.family).c_str());
  }
  return made;
}

void ExpectedPicture::write(const std::wstring& text, const Rect& rect, Face face, uint32_t colour,
                            UINT format) {
  const HGDIOBJ before = SelectObject(memory, font(face));
  SetBkMode(memory, TRANSPARENT);
  SetTextColor(memory, reversed(colour));
  RECT place{rect.left + origin.x, rect.top + origin.y, rect.right + origin.x,
             rect.bottom + origin.y};
  DrawTextW(memory, text.c_str(), static_cast<int>(text.size()), &place, format);
  SelectObject(memory, before);
  GdiFlush();
}

void ExpectedPicture::writeAsBox(const std::wstring& text, Face face, uint32_t colour) {
  const HGDIOBJ before = SelectObject(memory, font(face));
  SetBkMode(memory, TRANSPARENT);
  SetTextColor(memory, reversed(colour));
  TEXTMETRICW metrics{};
  GetTextMetricsW(memory, &metrics);
  int top = origin.y;
  std::wistringstream lines(text);
  for (std::wstring line; std::getline(lines, line); top += metrics.tmHeight) {
    if (line.ends_with(L'\r')) line.pop_back();
    if (!line.empty()) writeLine(line, top);
  }
  SelectObject(memory, before);
  GdiFlush();
}

void ExpectedPicture::writeLine(const std::wstring& line, int top) {
  const auto length = static_cast<int>(line.size());
  SCRIPT_STRING_ANALYSIS analysis = nullptr;
  ScriptStringAnalyse(memory, line.c_str(), length, 3 * length / 2 + 16, -1,
                      SSA_LINK | SSA_FALLBACK | SSA_GLYPHS, -1, nullptr, nullptr, nullptr, nullptr,
                      nullptr, &analysis);
  ScriptStringOut(analysis, origin.x, top, 0, nullptr, 0, 0, FALSE);
  ScriptStringFree(&analysis);
}

void ExpectedPicture::leaveOut(const Rect& rect) {
  const Rect area = visible(rect);
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) kinds[index(x, y)] = Kind::LeftOut;
  }
}

Picture ExpectedPicture::picture() const {
  GdiFlush();
  Picture copy{size, {pixels, pixels + kinds.size()}};
  for (uint32_t& pixel : copy.pixels) pixel &= 0xFFFFFF;
  return copy;
}

namespace {

/// Visits the colours of all pixels up to kReach away.
template <class Visit>
void visitAround(const Picture& picture, int x, int y, Visit&& visit) {
  constexpr int kReach = ExpectedPicture::kReach;
  for (int nearY = std::max(y - kReach, 0); nearY <= y + kReach; ++nearY) {
    for (int nearX = std::max(x - kReach, 0); nearX <= x + kReach; ++nearX) {
      if (nearX < picture.size.width && nearY < picture.size.height)
        visit(picture.at(nearX, nearY));
    }
  }
}

bool isBetweenThoseAround(uint32_t colour, const Picture& picture, int x, int y) {
  for (const int shift : {0, 8, 16}) {
    uint32_t least = 0xFF;
    uint32_t most = 0;
    visitAround(picture, x, y, [&](uint32_t other) {
      least = std::min(least, other >> shift & 0xFF);
      most = std::max(most, other >> shift & 0xFF);
    });
    const uint32_t part = colour >> shift & 0xFF;
    if (part < least || part > most) return false;
  }
  return true;
}

bool isAround(uint32_t colour, const Picture& picture, int x, int y) {
  bool found = false;
  visitAround(picture, x, y, [&](uint32_t other) { found = found || other == colour; });
  return found;
}

}  // namespace

std::string ExpectedPicture::differencesFrom(const Picture& seen) const {
  const Picture expected = picture();
  if (seen.size != expected.size) return "another size";
  std::map<uint16_t, Found> found;
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const Kind kind = kinds[index(x, y)];
      if (kind == Kind::LeftOut || seen.at(x, y) == expected.at(x, y)) continue;
      const bool mayDiffer = kind != Kind::Exact &&
                             isBetweenThoseAround(seen.at(x, y), expected, x, y) &&
                             (kind == Kind::SoftInPart || isAround(expected.at(x, y), seen, x, y));
      if (mayDiffer) continue;
      Found& here = found[owners[index(x, y)]];
      if (here.count++ == 0) here.first = {x, y};
    }
  }
  std::ostringstream text;
  for (const auto& [owner, here] : found) {
    const auto [x, y] = here.first;
    text << regions[owner] << ": " << here.count << " pixels, the first at " << x << ", " << y
         << std::hex << std::setfill('0') << ": expected #" << std::setw(6) << expected.at(x, y)
         << ", seen #" << std::setw(6) << seen.at(x, y) << std::dec << "\n";
  }
  return text.str();
}

}  // namespace mrl

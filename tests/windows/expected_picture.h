// The expected pixels of a drawing, computed by the tests' own painter, and a comparison of a
// screen picture with them.
//
// Shapes are filled pixel by pixel from their geometry, without anti-aliasing, and not by the
// program's painter or GDI+, so a fault in either shows up. Texts, the dotted focus rectangle and
// the icon are drawn by the system here too, but with fonts, colours and flags chosen by this file.
// Whether a drawing is the right one is not checked here: the logic tests compare drawings with
// numbers.
//
// Pixels must be equal, except soft ones: those within 2.5 pixels of a round or slanted edge, those
// that an edge covers partly, and the dots of a focus rectangle. How an edge is anti-aliased, if at
// all, is up to the system. A soft pixel may have any colour between those expected up to kReach
// pixels away, and the colour expected without anti-aliasing must occur that near.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <string>

#include "settings_window/drawing.h"
#include "windows/picture.h"

namespace mrl {

class ExpectedPicture {
 public:
  static constexpr int kReach = 3;

  ExpectedPicture(Size size, int dpi);
  ExpectedPicture(const ExpectedPicture&) = delete;
  ~ExpectedPicture();

  /// From now on coordinates are relative to `origin`, and drawing is clipped to `clip` (in picture
  /// coordinates), whose pixels now belong to `region`.
  void enter(const std::string& region, Point origin, const Rect& clip);
  void paint(const Drawing& drawing);
  /// Writes within `rect` in the font of `face`; `format` is that of DrawTextW.
  void write(const std::wstring& text, const Rect& rect, Face face, uint32_t colour, UINT format);
  /// Writes lines from the top left corner, placing characters as the system's edit boxes do.
  void writeAsBox(const std::wstring& text, Face face, uint32_t colour);
  /// Excludes `rect` (relative to the origin) from the comparison.
  void leaveOut(const Rect& rect);

  /// One line per region that differs; empty if everything is as expected.
  std::string differencesFrom(const Picture& seen) const;
  Picture picture() const;

 private:
  using Coverage = std::function<float(float, float)>;

  void operator()(const Area& area);
  void operator()(const RoundedRect& shape);
  void operator()(const Ring& ring);
  void operator()(const Disc& disc);
  void operator()(const Line& line);
  void operator()(const Glyph& glyph);
  void operator()(const Label& label);
  void writeLine(const std::wstring& line, int top);
  void writeWrapped(const Label& label);
  void operator()(const FocusMark& mark);
  void operator()(const ProgramIcon& icon);

  /// Sets `colour` where `distance` to the shape is negative; pixels at the edge are covered
  /// partly. `isCurved` says whether the edge near a point is round or slanted.
  void fill(const Rect& around, uint32_t colour, const Coverage& distance,
            const std::function<bool(float, float)>& isCurved);
  uint32_t& at(int x, int y) const;
  size_t index(int x, int y) const;
  Rect visible(const Rect& rect) const;
  HFONT font(Face face);

  Size size;
  int dpi;
  HDC memory = nullptr;
  HBITMAP bitmap = nullptr;
  HGDIOBJ bitmapBefore = nullptr;
  uint32_t* pixels = nullptr;
  enum class Kind : uint8_t { Exact, Soft, SoftInPart, LeftOut };
  std::vector<Kind> kinds;
  std::vector<uint16_t> owners;  // indices into `regions`
  std::vector<std::string> regions;
  Point origin;
  Rect clip;
  std::map<Face, HFONT> fonts;
};

}  // namespace mrl

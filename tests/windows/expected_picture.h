// What a drawing should look like on the screen, told by a painter of the tests' own, and how a
// picture of the screen differs from it.
//
// Shapes are filled here pixel by pixel from their geometry, unsmoothed, and never by the program's
// painter or by GDI+, so a fault of either shows. Texts, the dotted focus rectangle and the icon
// are the system's work here too, but asked for here: fonts, colours and flags are this file's own.
// That a drawing is the right one is not seen here: the tests of the logic compare drawings with
// numbers.
//
// Pixels must be equal, but for the soft ones: those within two pixels and a half of a round or
// slanted edge, those that an edge covers in part, and the dots of a focus rectangle. How an edge
// is smoothed, if at all, is the system's. A soft pixel may be of any colour between those expected
// up to kReach pixels away; and what is expected there without smoothing must be seen as near.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <string>

#include "settings_window/settings_drawing.h"
#include "windows/picture.h"

namespace mrl {

class ExpectedPicture {
 public:
  static constexpr int kReach = 3;

  ExpectedPicture(Size size, int dpi);
  ExpectedPicture(const ExpectedPicture&) = delete;
  ~ExpectedPicture();

  /// From here on everything counts from `origin` and stays within `clip`, a rectangle of the
  /// picture, whose pixels belong to `region` now.
  void enter(const std::string& region, Point origin, const Rect& clip);
  void paint(const Drawing& drawing);
  /// Within `rect`, in the font of `face`; `format` as DrawTextW knows it.
  void write(const std::wstring& text, const Rect& rect, Face face, uint32_t colour, UINT format);
  /// From the top left corner, as the system's edit boxes of one line place their characters.
  void writeAsBox(const std::wstring& text, Face face, uint32_t colour);
  /// What is not looked at; counts from the origin too.
  void leaveOut(const Rect& rect);

  /// A line for each region that differs; empty when all is as expected.
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
  void writeWrapped(const Label& label);
  void operator()(const FocusMark& mark);
  void operator()(const ProgramIcon& icon);

  /// Where `distance` to the shape is below zero the colour is, and at its edge a part of it.
  /// `isCurved` tells whether the edge next to that point is round or slanted.
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
  std::vector<uint16_t> owners;  // into `regions`
  std::vector<std::string> regions;
  Point origin;
  Rect clip;
  std::map<Face, HFONT> fonts;
};

}  // namespace mrl

#include "settings_window/window_look.h"

#include <algorithm>

#include "settings_window/control_ids.h"
#include "settings_window/control_look.h"
#include "settings_window/control_table.h"
#include "settings_window/presentation_page.h"

namespace mrl {
namespace {

constexpr const char16_t* kSubtitles[kPageCount] = {
    u"设置计时规则，以及归零后发生的动作",  u"调整颜色、字体与尺寸，实时查看悬浮窗效果",
    u"在关键时间点提醒，让演示节奏更从容",  u"连接手机或电脑，远程控制计时与幻灯片",
    u"管理 PPT / WPS 文件与逐文件计时规则",
};
constexpr int kDeckGlyph = 4;  // a deck has the icon of the presentations page
constexpr uint32_t kExcludedText = 0xA87426;

void addSidebar(Drawing& drawing, int height, Scale scale) {
  const auto area = [scale](int left, int top, int right, int bottom) {
    return Rect{scale(left), scale(top), scale(right), scale(bottom)};
  };
  // Measured from the bottom of the window.
  const auto foot = [scale, height](int top, int right, int bottom) {
    return Rect{scale(20), height - scale(top), scale(right), height - scale(bottom)};
  };
  const Shape shapes[] = {
      Area{{0, 0, scale(184), height}, kWhite},
      Line{{scale(183), 0}, {scale(183), height}, kHairline},
      ProgramIcon{squareAt({scale(20), scale(26)}, scale(36))},
      Label{u"Marlune", area(67, 25, 174, 52), Face::SectionTitle, kInk},
      Label{u"演示计时", area(68, 53, 174, 74), Face::Small, kMuted},
      Label{u"控制模式", foot(130, 168, 106), Face::Small, kMuted},
      Label{u"Marlune 0.3.15", foot(54, 176, 32), Face::Small, kMuted},
      Label{u"by：Dorvane", foot(30, 176, 8), Face::Small, kMuted},
  };
  drawing.insert(drawing.end(), std::begin(shapes), std::end(shapes));
}

void addCheckSquare(Drawing& drawing, Point topLeft, bool isChecked, Scale scale) {
  const Rect square = squareAt(topLeft, scale(18));
  if (!isChecked) {
    drawing.push_back(RoundedRect{square, scale(4), kWhite, kMuted});
    return;
  }
  const auto at = [&](int x, int y) {
    return Point{square.left + scale(x), square.top + scale(y)};
  };
  drawing.push_back(RoundedRect{square, scale(4), kAccent, kAccent});
  drawing.push_back(Line{at(4, 9), at(7, 12), kWhite, scale(2)});
  drawing.push_back(Line{at(7, 12), at(14, 5), kWhite, scale(2)});
}

}  // namespace

Drawing drawWindow(Size client, int page, int dpi) {
  const Scale scale{dpi};
  const auto [width, height] = client;
  const int left = scale(184);
  const int headEnd = scale(68);
  const int footStart = height - scale(66);
  const int right = width - scale(24);
  Drawing drawing{
      Area{wholeOf(client), kPageFill},
      Area{{left, 0, width, headEnd}, kWhite},
      Area{{left, footStart, width, height}, kWhite},
      Line{{left, headEnd}, {width, headEnd}, kHairline},
      Line{{left, footStart}, {width, footStart}, kHairline},
      Label{findControl(kFirstSection + page)->text,
            {scale(216), scale(83), right, scale(121)},
            Face::PageTitle,
            kInk},
      Label{kSubtitles[page], {scale(216), scale(126), right, scale(150)}, Face::Body, kMuted},
  };
  addSidebar(drawing, height, scale);
  return drawing;
}

Drawing drawPane(Size client, std::span<const Rect> cards, int dpi) {
  Drawing drawing{Area{wholeOf(client), kPageFill}};
  for (Rect card : cards) {
    card.right = std::min(card.right, client.width);  // keep the edge visible beside a scroll bar
    drawing.push_back(RoundedRect{card, toPixels(12, dpi), kWhite, kCardLine});
  }
  return drawing;
}

Drawing drawPreviewHost(Size client, bool isTextAlone) {
  return {Area{wholeOf(client), isTextAlone ? kHostDark : kHostLight}};
}

Drawing drawQrCode(Size client, const QrMatrix& matrix) {
  Drawing drawing{Area{wholeOf(client), kWhite}};
  const int modules = static_cast<int>(matrix.size());
  const QrPlace place = placeQrCode(client.width, client.height, modules);
  for (int y = 0; y < modules; ++y) {
    for (int x = 0; x < modules; ++x) {
      const Point corner{place.left + x * place.modulePixels, place.top + y * place.modulePixels};
      if (matrix[y][x]) drawing.push_back(Area{squareAt(corner, place.modulePixels), 0});
    }
  }
  return drawing;
}

Drawing drawComboRow(const Rect& row, const std::u16string& text, bool isSelected, int dpi) {
  return {Area{row, isSelected ? kReadOnlyFill : kWhite},
          Label{text,
                {row.left + toPixels(12, dpi), row.top, row.right, row.bottom},
                Face::Body,
                isSelected ? kAccent : kInk}};
}

Drawing drawFileRow(const Rect& row, const std::u16string& text, bool isSelected, int dpi,
                    bool hasCursor) {
  const Scale scale{dpi};
  const bool excluded = text.starts_with(kSkippedRow);
  const size_t prefix = text.find(u"] ");
  const std::u16string name = prefix == std::u16string::npos ? text : text.substr(prefix + 2);
  const Point square{row.right - scale(128), (row.top + row.bottom - scale(18)) / 2};
  const int nameRight = square.x - scale(12);
  const int middle = row.top + scale(30);
  Drawing drawing{
      Area{row, isSelected ? kSelectFill : kWhite},
      Glyph{{scale(14), row.top + scale(16), scale(36), row.top + scale(38)},
            kDeckGlyph,
            isSelected ? kAccent : kMuted},
      Label{name, {scale(48), row.top + scale(5), nameRight, middle}, Face::BodyStrong, kInk},
      Label{excluded ? u"已排除" : u"正常计时",
            {scale(48), middle, nameRight, row.bottom},
            Face::Small,
            excluded ? kExcludedText : kMuted},
  };
  addCheckSquare(drawing, square, excluded, scale);
  drawing.push_back(
      Label{u"跳过计时",
            {square.x + scale(18) + scale(8), row.top, row.right - scale(8), row.bottom},
            Face::Body,
            kInk});
  if (hasCursor && !isSelected) drawing.push_back(FocusMark{insetBy(row, scale(2))});
  return drawing;
}

Drawing drawStatusLine(Size client, const std::u16string& text, bool hasUnsavedInput) {
  const ChildColours colours =
      childColours(ColourAsker::Static, {.id = kStatusText, .hasUnsavedInput = hasUnsavedInput});
  return {Area{wholeOf(client), colours.fill},
          Label{text, wholeOf(client), faceOf(kStatusText), colours.text, false, true}};
}

Drawing drawEmptyList(Size client, int dpi, bool isFocused) {
  const Scale scale{dpi};
  const int middle = client.height / 2;
  const auto band = [&](int top, int bottom) {
    return Rect{scale(8), middle + scale(top), client.width - scale(8), middle + scale(bottom)};
  };
  Drawing drawing{
      Area{wholeOf(client), kWhite},
      Label{u"尚未添加演示文稿", band(-28, 2), Face::BodyStrong, kInk, true},
      Label{u"选择文件夹后，PPT / WPS 文件将显示在这里", band(4, 36), Face::Small, kMuted, true}};
  if (isFocused) drawing.push_back(FocusMark{insetBy(wholeOf(client), scale(2))});
  return drawing;
}

}  // namespace mrl

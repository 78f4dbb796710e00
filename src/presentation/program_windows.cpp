// Tables of image names and window classes.
#include "presentation/program_windows.h"

#include <algorithm>
#include <iterator>

#include "base/char_rules.h"
#include "presentation/automation_access.h"

namespace mrl {
namespace {

constexpr std::u16string_view kPowerPoint = kProviders[0];
constexpr std::u16string_view kWps = kProviders[1];
constexpr std::u16string_view kWpsOtherName = kProviders[2];

struct ImageRow {
  std::u16string_view image;
  std::u16string_view progId;
};

constexpr ImageRow kImages[] = {
    {u"powerpnt.exe", kPowerPoint}, {u"wpp.exe", kWps},       {u"wps.exe", kWps},
    {u"wpsppt.exe", kWps},          {u"wpsoffice.exe", kWps},
};

// PowerPoint's frame windows have no native object; one of these child windows does.
constexpr std::u16string_view kInnerClasses[] = {u"mdiClass", u"paneClassDC"};

template <typename Item, size_t kCount>
bool contains(const Item (&items)[kCount], const Item& item) {
  return std::find(std::begin(items), std::end(items), item) != std::end(items);
}

}  // namespace

std::u16string_view providerOfImage(const std::u16string& imagePath) {
  // Without a separator, npos + 1 is the start: the whole text is the name.
  const std::u16string name = lowerCopy(imagePath.substr(imagePath.find_last_of(u"\\/") + 1));
  const auto* row = std::find_if(std::begin(kImages), std::end(kImages),
                                 [&name](const ImageRow& each) { return each.image == name; });
  return row == std::end(kImages) ? std::u16string_view() : row->progId;
}

std::u16string_view otherProviderOf(std::u16string_view progId) {
  if (progId == kWps) return kWpsOtherName;
  if (progId == kWpsOtherName) return kWps;
  return {};
}

const std::vector<ProgramWindows::Row>& ProgramWindows::rows() {
  if (seen) return *seen;
  seen.emplace();
  for (const WindowHandle window : system.topLevelWindows()) {
    if (!system.isVisible(window)) continue;
    const std::u16string_view provider = providerOfImage(system.imageName(window));
    if (!provider.empty()) seen->push_back({window, provider});
  }
  return *seen;
}

std::vector<WindowHandle> objectModelWindows(ProgramWindows& programs, std::u16string_view progId) {
  std::vector<WindowHandle> list;
  if (progId != kPowerPoint && progId != kWps) return list;  // avoids enumerating all windows
  WindowSystem& desktop = programs.desktop();
  for (const ProgramWindows::Row& row : programs.rows()) {
    if (row.provider != progId) continue;
    list.push_back(row.window);
    for (const WindowHandle inner : desktop.windowsInside(row.window)) {
      const std::u16string className = desktop.className(inner);
      if (contains(kInnerClasses, std::u16string_view(className))) list.push_back(inner);
    }
  }
  return list;
}

}  // namespace mrl

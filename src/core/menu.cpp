#include "core/menu.h"

#include "core/commands.h"

namespace mrl {

std::vector<MenuItem> menuItems(const App& app, WindowHandle window) {
  if (app.platform.blackScreen.contains(window)) return {{kCommandToggleBlack, u"退出黑屏"}};
  const MenuItem separator;
  const bool automatic = app.settings.autoMode;
  return {
      {kCommandToggleTimer, u"开始/暂停计时 (F2)"},
      {kCommandReset, u"重置并停止 (F4)"},
      separator,
      {kCommandToggleResizeMode, app.resizeMode ? u"完成大小调整" : u"调整大小（拖动四角）"},
      {kCommandOpenSettings, u"打开设置"},
      separator,
      {kCommandAutoMode, u"自动模式", automatic},
      {kCommandManualMode, u"手动模式", !automatic},
      separator,
      {kCommandExit, u"退出 Marlune"},
  };
}

void showMenu(App& app, WindowHandle window, Point point) {
  const int command = app.platform.menu.choose(window, point, menuItems(app, window));
  if (command != 0) runCommand(app, command);
}

void onContextMenu(App& app, WindowHandle window, Point point) {
  showMenu(app, window, point.x == -1 ? app.platform.clockWindow.cursor() : point);
}

}  // namespace mrl

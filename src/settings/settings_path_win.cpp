#include "settings/settings_path_win.h"

#include <windows.h>

#include <objbase.h>
#include <shlobj.h>

#include "base/wide_win.h"

namespace mrl {

std::u16string settingsPath() {
  PWSTR folder = nullptr;
  std::u16string path;
  if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_LocalAppData, 0, nullptr, &folder))) {
    path = u16From(folder) + u"\\Marlune-Native\\settings.dat";
  }
  CoTaskMemFree(folder);  // required after a failure too
  return path;
}

}  // namespace mrl

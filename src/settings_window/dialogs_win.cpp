#include "settings_window/dialogs_win.h"

#include <commdlg.h>
#include <shobjidl.h>

#include <algorithm>

#include <optional>

#include "base/com_ref_win.h"
#include "base/wide_win.h"
#include "settings_window/shapes_win.h"

namespace mrl {
namespace {

/// Pickers don't need it: they stay above their owner, the settings window.
UINT layerOf(bool aboveAll) { return aboveAll ? MB_SYSTEMMODAL : 0; }

UINT iconOf(DialogIcon icon) {
  switch (icon) {
    case DialogIcon::Question: return MB_ICONQUESTION;
    case DialogIcon::Warning: return MB_ICONWARNING;
    case DialogIcon::Information: break;
  }
  return MB_ICONINFORMATION;
}

/// Without `offered` a folder is picked. Empty on cancel or failure.
std::u16string showPicker(HWND owner, const std::optional<OfferedFiles>& offered) {
  ComRef<IFileOpenDialog> dialog;
  if (FAILED(CoCreateInstance(__uuidof(FileOpenDialog), nullptr, CLSCTX_INPROC_SERVER,
                              __uuidof(IFileOpenDialog), reinterpret_cast<void**>(dialog.put())))) {
    return {};
  }
  FILEOPENDIALOGOPTIONS options{};
  dialog->GetOptions(&options);
  dialog->SetOptions(options | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST |
                     (offered ? FOS_FILEMUSTEXIST : FOS_PICKFOLDERS));
  if (offered) {
    const std::wstring name = wideFrom(offered->name);
    const std::wstring patterns = wideFrom(offered->patterns);
    const COMDLG_FILTERSPEC type{name.c_str(), patterns.c_str()};
    dialog->SetFileTypes(1, &type);
  }
  ComRef<IShellItem> item;
  wchar_t* path = nullptr;
  if (FAILED(dialog->Show(owner)) || FAILED(dialog->GetResult(item.put())) ||
      FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &path))) {
    return {};
  }
  std::u16string picked = u16From(path);
  CoTaskMemFree(path);
  return picked;
}

}  // namespace

bool SettingsDialogsWin::askYesNo(const std::u16string& text, const std::u16string& title,
                                  DialogIcon icon) {
  return MessageBoxW(view.topWindow(), wideFrom(text).c_str(), wideFrom(title).c_str(),
                     MB_YESNO | iconOf(icon) | layerOf(view.standsAboveAll())) == IDYES;
}

void SettingsDialogsWin::inform(const std::u16string& text, const std::u16string& title,
                                DialogIcon icon) {
  MessageBoxW(view.topWindow(), wideFrom(text).c_str(), wideFrom(title).c_str(),
              MB_OK | iconOf(icon) | layerOf(view.standsAboveAll()));
}

std::u16string SettingsDialogsWin::pickFolder() {
  return showPicker(view.topWindow(), std::nullopt);
}

std::u16string SettingsDialogsWin::pickFile(FileFilter filter) {
  return showPicker(view.topWindow(), offeredFiles(filter));
}

bool SettingsDialogsWin::pickColour(uint32_t& colour, CustomColours& custom) {
  COLORREF kept[std::tuple_size_v<CustomColours>];
  for (size_t i = 0; i < custom.size(); ++i) kept[i] = systemColour(custom[i]);
  CHOOSECOLORW choice{};
  choice.lStructSize = sizeof choice;
  choice.hwndOwner = view.topWindow();
  choice.rgbResult = systemColour(colour);
  choice.lpCustColors = kept;
  choice.Flags = CC_RGBINIT | CC_FULLOPEN;
  if (!ChooseColorW(&choice)) return false;
  // Swapping red and blue is its own inverse.
  colour = systemColour(choice.rgbResult);
  for (size_t i = 0; i < custom.size(); ++i) custom[i] = systemColour(kept[i]);
  return true;
}

bool SettingsDialogsWin::copyText(const std::u16string& text) {
  if (!OpenClipboard(view.topWindow())) return false;
  const size_t bytes = (text.size() + 1) * sizeof(char16_t);
  HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
  void* target = block ? GlobalLock(block) : nullptr;
  bool copied = false;
  if (target != nullptr) {
    std::copy_n(text.c_str(), text.size() + 1, static_cast<char16_t*>(target));
    GlobalUnlock(block);
    EmptyClipboard();
    copied = SetClipboardData(CF_UNICODETEXT, block) != nullptr;
  }
  if (!copied && block) GlobalFree(block);
  CloseClipboard();
  return copied;
}

}  // namespace mrl

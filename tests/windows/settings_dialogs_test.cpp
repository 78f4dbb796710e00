// The system dialogs opened by the real settings window: what they offer, and the effect of their
// result.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/wide_win.h"
#include "windows/settings_hand.h"
#include "windows/top_windows.h"

namespace mrl {
namespace {

using standin::waitUntil;

// Control ids of the system's colour dialog.
constexpr int kRed = 706;
constexpr int kGreen = 707;
constexpr int kBlue = 708;
constexpr int kKeepColour = 712;
constexpr int kKeptColours = 721;  // two rows of eight

class SettingsDialogsTest : public SettingsHand {
 protected:
  HWND dialog() const {
    return visibleTopWindow(L"#32770", GetWindowThreadProcessId(window(), nullptr));
  }
  /// When a dialog closes on a busy machine, Wine hears too late that the X server has taken the
  /// focus from it, and puts the desktop in front. Windows always activates the owner.
  static bool isInFront(HWND window) {
    if (window == nullptr) return false;
    if (GetForegroundWindow() == GetDesktopWindow()) SetForegroundWindow(window);
    return GetForegroundWindow() == window;
  }
  void openBy(int button) const {
    press(button);
    ASSERT_TRUE(waitUntil([&] { return isInFront(dialog()); }, 30'000));
  }
  bool isGone() const {
    return waitUntil([&] { return dialog() == nullptr && isInFront(window()); });
  }
  /// Whether any control of the dialog shows it.
  bool offers(const std::wstring& text) const {
    struct Search {
      const std::wstring& text;
      bool found = false;
    } search{text};
    EnumChildWindows(
        dialog(),
        [](HWND child, LPARAM parameter) -> BOOL {
          auto& wanted = *reinterpret_cast<Search*>(parameter);
          wanted.found = textOf(child).find(wanted.text) != std::wstring::npos;
          return !wanted.found;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
  }
  void answerWith(const std::wstring& path) const {
    typeText(path);
    pressKeys(VK_RETURN);
  }
  std::wstring number(int id) const { return textOf(GetDlgItem(dialog(), id)); }
  void setNumber(int id, const wchar_t* text) const {
    ask(GetDlgItem(dialog(), id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
  }

  const TemporaryFolder files{L"picked by marlune"};
};

TEST_F(SettingsDialogsTest, TheFolderPickerTakesAFolder) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(4);
  ASSERT_NO_FATAL_FAILURE(openBy(kPickFolderButton));
  answerWith(files.path());
  EXPECT_TRUE(isGone());
  EXPECT_TRUE(reads(kFolderBox, files.path()));
}

struct FilePicker {
  int check;
  int button;
  int box;
  const wchar_t* name;
  const wchar_t* filter;
};

TEST_F(SettingsDialogsTest, TheFilePickersTakeAFileThatExistsOfTheirKind) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  for (const FilePicker& picker :
       {FilePicker{kSoundCheck, kPickSoundButton, kSoundFileBox, L"\\a.wav", L"音频文件"},
        FilePicker{kSwitchCheck, kPickDeckButton, kSwitchDeckBox, L"\\b.pptx", L"演示文稿"}}) {
    SCOPED_TRACE(picker.button);
    press(picker.check);
    ASSERT_TRUE(waitUntil([&] { return isEnabled(picker.button); }));
    const std::wstring path = files.path() + picker.name;
    std::ofstream(std::filesystem::path(path)) << "x";
    ASSERT_NO_FATAL_FAILURE(openBy(picker.button));
    EXPECT_TRUE(offers(picker.filter));
    answerWith(path);
    EXPECT_TRUE(isGone());
    EXPECT_TRUE(reads(picker.box, path));
  }
}

TEST_F(SettingsDialogsTest, TheColourDialogBeginsAtTheColourAndGivesBackTheChosenOne) {
  Settings settings = quiet();
  settings.foreground = 0x112233;
  ASSERT_NO_FATAL_FAILURE(open(settings));
  turnTo(1);
  ASSERT_NO_FATAL_FAILURE(openBy(kPickForegroundButton));
  EXPECT_EQ(number(kRed), L"17");
  EXPECT_EQ(number(kGreen), L"34");
  EXPECT_EQ(number(kBlue), L"51");
  setNumber(kRed, L"200");
  setNumber(kBlue, L"100");
  pressKeys(VK_RETURN);
  EXPECT_TRUE(isGone());
  EXPECT_TRUE(reads(kForegroundBox, L"#C82264"));
  EXPECT_TRUE(saved(&Settings::foreground, 0xC82264u));
}

TEST_F(SettingsDialogsTest, AColourDialogThatIsCancelledLeavesWhatWasTyped) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  retype(kForegroundBox, L"#C03");
  ASSERT_NO_FATAL_FAILURE(openBy(kPickForegroundButton));
  setNumber(kRed, L"200");
  pressKeys(VK_ESCAPE);
  EXPECT_TRUE(isGone());
  turnTo(2);  // handled after anything the dialog has posted
  EXPECT_EQ(text(kForegroundBox), L"#C03");
}

TEST_F(SettingsDialogsTest, AColourThatWasKeptIsStillThereTheNextTime) {
  ASSERT_NO_FATAL_FAILURE(open(quiet()));
  turnTo(1);
  ASSERT_NO_FATAL_FAILURE(openBy(kPickForegroundButton));
  setNumber(kRed, L"200");
  setNumber(kGreen, L"80");
  setNumber(kBlue, L"30");
  ask(GetDlgItem(dialog(), kKeepColour), BM_CLICK);
  pressKeys(VK_RETURN);
  ASSERT_TRUE(isGone());
  ASSERT_NO_FATAL_FAILURE(openBy(kPickAlertButton));
  ASSERT_NE(number(kGreen), L"80");
  RECT kept{};
  ASSERT_TRUE(GetWindowRect(GetDlgItem(dialog(), kKeptColours), &kept));
  clickMouse({kept.left + 8, kept.top + 8});
  EXPECT_TRUE(waitUntil([&] { return number(kGreen) == L"80"; }));
  EXPECT_EQ(number(kRed), L"200");
  EXPECT_EQ(number(kBlue), L"30");
}

}  // namespace
}  // namespace mrl

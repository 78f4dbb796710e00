// What Windows reads from the built executable: headers, manifest, version, icons, the page; and
// the window classes with its icons.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/unique_handle.h"
#include "base/window_classes_win.h"
#include "resources/resource_ids.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

struct ModuleTraits {
  static HMODULE none() { return nullptr; }
  static void close(HMODULE module) { FreeLibrary(module); }
};

std::wstring imagePath() { return standin::executableFolder() + L"marlune.exe"; }

class ImageTest : public testing::Test {
 protected:
  void SetUp() override {
    module.reset(LoadLibraryExW(imagePath().c_str(), nullptr,
                                LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
    ASSERT_TRUE(module);
  }
  std::string_view resource(int id, LPCWSTR type) const {
    const HRSRC found = FindResourceW(module.get(), MAKEINTRESOURCEW(id), type);
    if (found == nullptr) return {};
    return {static_cast<const char*>(LockResource(LoadResource(module.get(), found))),
            SizeofResource(module.get(), found)};
  }
  void expectManifestSays(std::string_view text) const {
    EXPECT_NE(resource(1, RT_MANIFEST).find(text), std::string_view::npos) << text;
  }

  UniqueHandle<ModuleTraits> module;
};

template <typename Value>
Value valueAt(std::string_view bytes, size_t at) {
  Value value{};
  EXPECT_LE(at + sizeof value, bytes.size());
  if (at + sizeof value <= bytes.size()) memcpy(&value, bytes.data() + at, sizeof value);
  return value;
}

std::string imageBytes() {
  std::ifstream file(std::filesystem::path(imagePath()), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(ImageTest, ItIsAProgramOf64BitsWithWindowsAndNoConsole) {
  const std::string bytes = imageBytes();
  const auto header = valueAt<IMAGE_NT_HEADERS64>(
      bytes, static_cast<size_t>(valueAt<IMAGE_DOS_HEADER>(bytes, 0).e_lfanew));
  EXPECT_EQ(header.FileHeader.Machine, IMAGE_FILE_MACHINE_AMD64);
  EXPECT_EQ(header.OptionalHeader.Magic, IMAGE_NT_OPTIONAL_HDR64_MAGIC);
  EXPECT_EQ(header.OptionalHeader.Subsystem, IMAGE_SUBSYSTEM_WINDOWS_GUI);
}

TEST_F(ImageTest, TheTaskbarKnowsItByItsName) {
  // Other processes can't observe the call, so this only checks that the image contains the name.
  const std::wstring_view name(L"Marlune.Native\0", 15);
  const std::string bytes = imageBytes();
  EXPECT_NE(bytes.find(std::string(reinterpret_cast<const char*>(name.data()), name.size() * 2)),
            std::string::npos);
}

TEST_F(ImageTest, TheManifestNamesTheAssembly) {
  expectManifestSays(R"(<assemblyIdentity type="win32" name="Marlune.Native" version="0.3.15.0")");
}

TEST_F(ImageTest, TheManifestAsksForAnAdministratorsRightsAndNoOthers) {
  expectManifestSays(R"(<requestedExecutionLevel level="requireAdministrator" uiAccess="false"/>)");
}

TEST_F(ImageTest, TheManifestAsksForTheNewControls) {
  expectManifestSays(
      R"(<assemblyIdentity type="win32" name="Microsoft.Windows.Common-Controls" version="6.0.0.0")");
}

TEST_F(ImageTest, TheManifestTellsThatItKnowsEachMonitorsScaleAndLongPaths) {
  expectManifestSays(">PerMonitorV2</dpiAwareness>");
  expectManifestSays(">true</longPathAware>");
}

TEST_F(ImageTest, ThePageOfTheRemoteIsAboard) {
  EXPECT_TRUE(resource(MARLUNE_PAGE, RT_RCDATA).starts_with("\xEF\xBB\xBF<!DOCTYPE html>"));
}

TEST_F(ImageTest, TheVersionBlockNamesProductAndVersion) {
  DWORD unused = 0;
  std::vector<char> block(GetFileVersionInfoSizeW(imagePath().c_str(), &unused));
  ASSERT_TRUE(
      GetFileVersionInfoW(imagePath().c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
  void* value = nullptr;
  UINT size = 0;
  ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &value, &size));
  const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(value);
  for (const auto& [high, low] : {std::pair{fixed.dwFileVersionMS, fixed.dwFileVersionLS},
                                  std::pair{fixed.dwProductVersionMS, fixed.dwProductVersionLS}}) {
    EXPECT_EQ(high, DWORD{MAKELONG(3, 0)});
    EXPECT_EQ(low, DWORD{MAKELONG(0, 15)});
  }
  const std::pair<std::wstring, std::wstring> texts[] = {
      {L"FileDescription", L"Marlune presentation timer"},
      {L"FileVersion", L"0.3.15"},
      {L"ProductName", L"Marlune"},
      {L"ProductVersion", L"0.3.15"}};
  for (const auto& [name, text] : texts) {
    const std::wstring path = L"\\StringFileInfo\\040904B0\\" + name;
    ASSERT_TRUE(VerQueryValueW(block.data(), path.c_str(), &value, &size));
    EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(value)), text);
  }
}

#pragma pack(push, 2)
struct IconEntry {  // in a group; width 0 means 256
  BYTE width, height, colours, unused;
  WORD planes, bits;
  DWORD size;
  WORD id;
};
#pragma pack(pop)

/// Width of an image with 32 bits per pixel (an RGBA PNG or a bitmap); 0 for any other.
int widthOf32Bits(std::string_view image) {
  const auto bigEndian = [&](size_t at) {
    return static_cast<int>(_byteswap_ulong(valueAt<DWORD>(image, at)));
  };
  if (image.substr(1, 3) == "PNG") {
    return valueAt<BYTE>(image, 24) == 8 && valueAt<BYTE>(image, 25) == 6 ? bigEndian(16) : 0;
  }
  const auto header = valueAt<BITMAPINFOHEADER>(image, 0);
  return header.biBitCount == 32 ? static_cast<int>(header.biWidth) : 0;
}

TEST_F(ImageTest, TheIconHasNineImagesOf32Bits) {
  const std::string_view group = resource(MARLUNE_ICON, RT_GROUP_ICON);
  std::vector<int> sizes;
  for (WORD number = 0; number < valueAt<WORD>(group, 4); ++number) {
    const auto entry = valueAt<IconEntry>(group, 6 + number * sizeof(IconEntry));
    const int size = entry.width == 0 ? 256 : entry.width;
    EXPECT_EQ(entry.height, entry.width);
    EXPECT_EQ(int{entry.bits}, 32);
    EXPECT_EQ(widthOf32Bits(resource(entry.id, RT_ICON)), size);
    sizes.push_back(size);
  }
  std::ranges::sort(sizes);
  EXPECT_EQ(sizes, (std::vector{16, 20, 24, 32, 40, 48, 64, 128, 256}));
}

class WindowClassesTest : public ImageTest {
 protected:
  void SetUp() override {
    ImageTest::SetUp();
    registerWindowClasses(module.get(), DefWindowProcW);
  }
  void TearDown() override {
    for (const wchar_t* name : {kTimerClass, kSettingsClass, kContentClass, kPreviewClass,
                                kPreviewHostClass, kResizeClass, kQrClass, kBlackClass}) {
      EXPECT_TRUE(UnregisterClassW(name, module.get()));
    }
  }
  WNDCLASSEXW look(const wchar_t* name) const {
    WNDCLASSEXW info{};
    info.cbSize = sizeof info;
    EXPECT_TRUE(GetClassInfoExW(module.get(), name, &info));
    return info;
  }
  static SIZE sizeOf(HICON icon) {
    ICONINFO info{};
    BITMAP bitmap{};
    if (!GetIconInfo(icon, &info)) return {};
    GetObjectW(info.hbmColor, sizeof bitmap, &bitmap);
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return {bitmap.bmWidth, bitmap.bmHeight};
  }
};

TEST_F(WindowClassesTest, EachHasItsBackground) {
  const auto system = [](int index) {
    return reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(index + 1));
  };
  const auto stock = [](int object) { return static_cast<HBRUSH>(GetStockObject(object)); };
  const std::pair<const wchar_t*, HBRUSH> rows[] = {
      {L"Marlune.Native.Timer", nullptr},
      {L"Marlune.Native.Settings", system(COLOR_BTNFACE)},
      {L"Marlune.Native.Content", system(COLOR_BTNFACE)},
      {L"Marlune.Native.Preview", nullptr},
      {L"Marlune.Native.PreviewHost", stock(BLACK_BRUSH)},
      {L"Marlune.Native.Resize", system(COLOR_BTNFACE)},
      {L"Marlune.Native.QR", stock(WHITE_BRUSH)},
      {L"Marlune.Native.Black", stock(BLACK_BRUSH)},
  };
  for (const auto& [name, brush] : rows) {
    EXPECT_EQ(look(name).hbrBackground, brush) << std::string(name, name + wcslen(name));
  }
}

TEST_F(WindowClassesTest, AllHaveTheArrowNoStyleAndTheProgramsIconInBothSizes) {
  for (const wchar_t* name : {kTimerClass, kSettingsClass, kContentClass, kPreviewClass,
                              kPreviewHostClass, kResizeClass, kQrClass, kBlackClass}) {
    const WNDCLASSEXW info = look(name);
    EXPECT_EQ(info.style, 0u);
    EXPECT_EQ(info.hCursor, LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(sizeOf(info.hIcon).cx, GetSystemMetrics(SM_CXICON));
    EXPECT_EQ(sizeOf(info.hIcon).cy, GetSystemMetrics(SM_CYICON));
    EXPECT_EQ(sizeOf(info.hIconSm).cx, GetSystemMetrics(SM_CXSMICON));
    EXPECT_EQ(sizeOf(info.hIconSm).cy, GetSystemMetrics(SM_CYSMICON));
  }
}

}  // namespace
}  // namespace mrl

#include "settings/files_win.h"

#include <windows.h>

#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/kernel_handle_win.h"
#include "base/unique_handle.h"
#include "base/wide_win.h"
#include "settings/file_kind.h"
#include "settings/path_text.h"

namespace mrl {
namespace {

constexpr DWORD kLongestPath = 32768;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct SearchTraits {
  static HANDLE none() { return INVALID_HANDLE_VALUE; }
  static void close(HANDLE search) { FindClose(search); }
};

/// Null on failure; GetLastError() then has the reason.
KernelHandle openFile(const std::u16string& path, DWORD access, DWORD share, DWORD disposition,
                      DWORD flags) {
  const HANDLE handle =
      CreateFileW(wideFrom(path).c_str(), access, share, nullptr, disposition, flags, nullptr);
  const DWORD code = GetLastError();
  KernelHandle file(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
  SetLastError(code);  // freeing the text may have changed it
  return file;
}

/// Opens an existing file or folder, for its attributes only.
KernelHandle openForAttributes(const std::u16string& path) {
  return openFile(path, FILE_READ_ATTRIBUTES, kShareAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
}

FileKind kindFrom(DWORD attributes) {
  return attributes & FILE_ATTRIBUTE_DIRECTORY ? FileKind::Directory : FileKind::Regular;
}

std::u16string systemText(DWORD code) {
  wchar_t text[512];
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, code, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  std::wstring_view words(text, length);
  while (words.ends_with(L' ')) words.remove_suffix(1);
  return words.empty() ? u16From(L"error " + std::to_wstring(code)) : u16From(words);
}

class Writer : public FileWriter {
 public:
  explicit Writer(KernelHandle opened) : file(std::move(opened)) {}
  bool write(std::string_view bytes) override {
    DWORD written = 0;
    return WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                     nullptr) != 0 &&
           written == bytes.size();
  }
  bool flush() override { return FlushFileBuffers(file.get()) != 0; }

 private:
  KernelHandle file;
};

}  // namespace

bool FilesWin::status(const std::u16string& path, FileKind& kind, std::u16string& error) {
  const KernelHandle file = openForAttributes(path);
  BY_HANDLE_FILE_INFORMATION info = {};
  if (file && GetFileType(file.get()) != FILE_TYPE_DISK) {
    kind = FileKind::Other;
    return true;
  }
  if (!file || GetFileInformationByHandle(file.get(), &info) == 0) {
    const DWORD code = GetLastError();
    if (meansMissing(code)) {
      kind = FileKind::Missing;
      return true;
    }
    error = systemText(code);
    return false;
  }
  kind = kindFrom(info.dwFileAttributes);
  return true;
}

bool FilesWin::read(const std::u16string& path, std::string& bytes) {
  const KernelHandle file =
      openFile(path, GENERIC_READ, kShareAll, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
  if (!file) return false;
  std::string all;
  char chunk[65536];
  DWORD count = 0;
  do {
    if (ReadFile(file.get(), chunk, sizeof chunk, &count, nullptr) == 0) return false;
    all.append(chunk, count);
  } while (count > 0);
  bytes = std::move(all);
  return true;
}

std::unique_ptr<FileWriter> FilesWin::create(const std::u16string& path) {
  KernelHandle file = openFile(path, GENERIC_WRITE, 0, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL);
  return file ? std::make_unique<Writer>(std::move(file)) : nullptr;
}

bool FilesWin::replace(const std::u16string& from, const std::u16string& to) {
  return MoveFileExW(wideFrom(from).c_str(), wideFrom(to).c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

void FilesWin::remove(const std::u16string& path) { DeleteFileW(wideFrom(path).c_str()); }

bool FilesWin::createFolders(const std::u16string& path, std::u16string& error) {
  std::error_code code;
  std::filesystem::create_directories(wideFrom(path), code);
  if (code) error = systemText(static_cast<DWORD>(code.value()));
  return !code;
}

std::vector<FolderEntry> FilesWin::list(const std::u16string& folder) {
  std::vector<FolderEntry> entries;
  WIN32_FIND_DATAW found = {};
  const UniqueHandle<SearchTraits> search(
      FindFirstFileExW(wideFrom(joinedPath(folder, u"*", separator())).c_str(), FindExInfoBasic,
                       &found, FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
  if (!search) return entries;
  do {
    FolderEntry entry{u16From(found.cFileName), kindFrom(found.dwFileAttributes)};
    if (entry.name == u"." || entry.name == u"..") continue;
    if (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) {  // reported for the link itself
      std::u16string ignored;
      entry.kind = FileKind::Missing;
      (void)status(joinedPath(folder, entry.name, separator()), entry.kind, ignored);
    }
    entries.push_back(std::move(entry));
  } while (FindNextFileW(search.get(), &found) != 0);
  return entries;
}

CanonicalResult FilesWin::canonical(const std::u16string& path, std::u16string& result) {
  const KernelHandle file = openForAttributes(path);
  std::wstring found(kLongestPath, L'\0');
  const DWORD length =
      file ? GetFinalPathNameByHandleW(file.get(), found.data(), kLongestPath, 0) : 0;
  if (length == 0) {
    return meansMissing(GetLastError()) ? CanonicalResult::Missing : CanonicalResult::Failed;
  }
  if (length >= kLongestPath) return CanonicalResult::Failed;
  found.resize(length);
  result = withoutLongPathPrefix(u16From(found));
  return CanonicalResult::Found;
}

}  // namespace mrl

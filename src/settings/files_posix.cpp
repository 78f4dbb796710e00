#include "settings/files_posix.h"

#include <dirent.h>
#include <fcntl.h>
#include <limits.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "base/text.h"
#include "settings/path_text.h"

namespace mrl {
namespace {

class Descriptor {
 public:
  explicit Descriptor(int opened) : number(opened) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number >= 0) close(number);
  }
  [[nodiscard]] bool isOpen() const { return number >= 0; }
  const int number;
};

struct FolderCloser {
  void operator()(DIR* folder) const { closedir(folder); }
};

class Writer : public FileWriter {
 public:
  explicit Writer(int opened) : file(opened) {}
  bool isExclusive() const {
    return file.isOpen() && flock(file.number, LOCK_EX | LOCK_NB) == 0 &&
           ftruncate(file.number, 0) == 0;
  }
  bool write(std::string_view bytes) override {
    return ::write(file.number, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  }
  bool flush() override { return fsync(file.number) == 0; }

 private:
  Descriptor file;
};

std::u16string systemText(int code) { return utf16From(std::generic_category().message(code)); }

FileKind kindFrom(mode_t mode) {
  if (S_ISREG(mode)) return FileKind::Regular;
  return S_ISDIR(mode) ? FileKind::Directory : FileKind::Other;
}

/// Most file systems report the kind with the name; others, and links, need a stat.
FileKind kindOf(int folder, const dirent& entry) {
  if (entry.d_type == DT_REG) return FileKind::Regular;
  if (entry.d_type == DT_DIR) return FileKind::Directory;
  struct stat found = {};
  if (fstatat(folder, entry.d_name, &found, 0) != 0) return FileKind::Missing;
  return kindFrom(found.st_mode);
}

bool isMissing(int code) { return code == ENOENT || code == ENOTDIR; }

}  // namespace

bool FilesPosix::status(const std::u16string& path, FileKind& kind, std::u16string& error) {
  struct stat found = {};
  if (stat(utf8From(path).c_str(), &found) != 0) {
    const int code = errno;
    if (!isMissing(code)) {
      error = systemText(code);
      return false;
    }
    kind = FileKind::Missing;
  } else {
    kind = kindFrom(found.st_mode);
  }
  return true;
}

bool FilesPosix::read(const std::u16string& path, std::string& bytes) {
  const Descriptor file(open(utf8From(path).c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.isOpen()) return false;
  std::string all;
  char chunk[65536];
  ssize_t count = 0;
  while ((count = ::read(file.number, chunk, sizeof chunk)) > 0) {
    all.append(chunk, static_cast<size_t>(count));
  }
  if (count == 0) bytes = std::move(all);
  return count == 0;
}

std::unique_ptr<FileWriter> FilesPosix::create(const std::u16string& path) {
  // The lock stands in for exclusive access, so truncate only once it is held.
  auto writer =
      std::make_unique<Writer>(open(utf8From(path).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
  return writer->isExclusive() ? std::move(writer) : nullptr;
}

bool FilesPosix::replace(const std::u16string& from, const std::u16string& to) {
  if (std::rename(utf8From(from).c_str(), utf8From(to).c_str()) != 0) return false;
  // The new name is an entry of the folder, which needs its own fsync. A failure of that is
  // ignored: the move can't be undone any more.
  const std::string folder = utf8From(parentFolder(to));
  const Descriptor opened(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC));
  if (opened.isOpen()) fsync(opened.number);
  return true;
}

void FilesPosix::remove(const std::u16string& path) { unlink(utf8From(path).c_str()); }

bool FilesPosix::createFolders(const std::u16string& path, std::u16string& error) {
  std::error_code code;
  std::filesystem::create_directories(utf8From(path), code);
  if (code) error = systemText(code.value());
  return !code;
}

std::vector<FolderEntry> FilesPosix::list(const std::u16string& folder) {
  std::vector<FolderEntry> entries;
  const std::unique_ptr<DIR, FolderCloser> opened(opendir(utf8From(folder).c_str()));
  if (!opened) return entries;
  while (const dirent* entry = readdir(opened.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    entries.push_back({utf16From(name), kindOf(dirfd(opened.get()), *entry)});
  }
  return entries;
}

CanonicalResult FilesPosix::canonical(const std::u16string& path, std::u16string& result) {
  char resolved[PATH_MAX];
  if (realpath(utf8From(path).c_str(), resolved)) {
    result = utf16From(resolved);
    return CanonicalResult::Found;
  }
  return isMissing(errno) ? CanonicalResult::Missing : CanonicalResult::Failed;
}

}  // namespace mrl

// The file system interface.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace mrl {

enum class FileKind { Missing, Regular, Directory, Other };

/// One entry of a folder.
struct FolderEntry {
  std::u16string name;
  FileKind kind = FileKind::Missing;  // links followed; Missing also if unknown

  bool operator==(const FolderEntry&) const = default;
};

enum class CanonicalResult { Found, Missing, Failed };

/// A file open for writing. Destroying it closes the file.
class FileWriter {
 public:
  virtual ~FileWriter() = default;
  /// Writes all bytes in one call; false if fewer were written.
  [[nodiscard]] virtual bool write(std::string_view bytes) = 0;
  /// True when the bytes are on the disk.
  [[nodiscard]] virtual bool flush() = 0;
};

/// UI thread only. Paths are in the platform's syntax.
class Files {
 public:
  virtual ~Files() = default;

  /// Reports what exists at `path`, following links. Absence is no error; any other error returns
  /// false and fills `error` with the system's message.
  [[nodiscard]] virtual bool status(const std::u16string& path, FileKind& kind,
                                    std::u16string& error) = 0;
  /// Reads the whole file, shared with other readers and writers. On failure `bytes` is unchanged.
  [[nodiscard]] virtual bool read(const std::u16string& path, std::string& bytes) = 0;
  /// Creates an empty file, truncating an existing one. Nobody else can open it until the writer is
  /// destroyed. Null on failure.
  [[nodiscard]] virtual std::unique_ptr<FileWriter> create(const std::u16string& path) = 0;
  /// Moves `from` over `to` atomically and flushes it to the disk. On failure both are unchanged.
  [[nodiscard]] virtual bool replace(const std::u16string& from, const std::u16string& to) = 0;
  virtual void remove(const std::u16string& path) = 0;
  /// Creates the folder and its parents; succeeds if it exists.
  [[nodiscard]] virtual bool createFolders(const std::u16string& path, std::u16string& error) = 0;
  /// The entries of a folder, not recursively, in any order. An error ends the list; the entries
  /// before it are returned. REQUIRES: `folder` is not empty.
  [[nodiscard]] virtual std::vector<FolderEntry> list(const std::u16string& folder) = 0;
  /// The final, absolute form of an existing path, links resolved and in the case found on disk.
  [[nodiscard]] virtual CanonicalResult canonical(const std::u16string& path,
                                                  std::u16string& result) = 0;
  /// The platform's preferred separator: '\\' or '/'.
  [[nodiscard]] virtual char16_t separator() const = 0;
};

}  // namespace mrl

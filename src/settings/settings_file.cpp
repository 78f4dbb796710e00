#include "settings/settings_file.h"

#include <exception>
#include <memory>

#include "base/text.h"
#include "settings/file_kind.h"
#include "settings/path_text.h"
#include "settings/settings_format.h"

namespace mrl {
namespace {

bool replaceFile(Files& files, const std::u16string& path, const Settings& record,
                 std::u16string& error) {
  if (path.empty()) {
    error = u"No configuration directory";
    return false;
  }
  if (record.skipList.size() > kMaxSkipped) {  // the next start would refuse the whole file
    error = u"Too many excluded presentations";
    return false;
  }
  const std::u16string folder(parentFolder(path));
  if (!folder.empty() && !files.createFolders(folder, error)) {
    error = u"create_directories: " + error + u" [" + folder + u"]";
    return false;
  }
  const std::string body = composeSettings(record);
  const std::u16string temporary = path + u".tmp";
  std::unique_ptr<FileWriter> writer = files.create(temporary);
  if (!writer) {  // another writer may own it: leave it alone
    error = u"Cannot create temporary configuration";
    return false;
  }
  const bool written = writer->write(body) && writer->flush();
  writer.reset();  // an open file can be neither moved nor removed
  if (written && files.replace(temporary, path)) return true;
  error = written ? u"Atomic configuration replacement failed" : u"Configuration flush failed";
  files.remove(temporary);
  return false;
}

}  // namespace

bool loadSettings(Files& files, const std::u16string& path, Settings& record,
                  std::u16string& error) {
  std::string bytes;
  if (files.read(path, bytes)) return parseSettings(bytes, record, error);

  if (fileKindOf(files, path) == FileKind::Missing) return true;
  error = u"无法读取配置";
  return false;
}

bool saveSettings(Files& files, const std::u16string& path, const Settings& record,
                  std::u16string& error) {
  try {
    return replaceFile(files, path, record, error);
  } catch (const std::exception& exception) {
    error = utf16From(exception.what());
    return false;
  }
}

}  // namespace mrl

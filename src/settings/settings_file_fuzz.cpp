// Fuzzes settings.dat: a refused file leaves the record unchanged; a record that loads is in range
// and survives a save and a load.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "settings/files_fake.h"
#include "settings/settings_file.h"
#include "settings/settings_sample.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::u16string path = u"C:\\settings.dat";
  mrl::FilesFake files;
  files.putFile(path, std::string(reinterpret_cast<const char*>(data), size));

  const mrl::Settings before = mrl::fullRecord();
  mrl::Settings record = before;
  std::u16string error;
  if (!mrl::loadSettings(files, path, record, error)) {
    require(record == before && !error.empty());
    return 0;
  }
  require(mrl::isLoadable(record) && error.empty());
  require(mrl::saveSettings(files, path, record, error));
  mrl::Settings again;
  require(mrl::loadSettings(files, path, again, error));
  require(again == record);
  return 0;
}

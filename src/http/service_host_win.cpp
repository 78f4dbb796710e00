#include "http/service_host_win.h"

#include <windows.h>

#include <bcrypt.h>

#include "resources/resource_ids.h"

namespace mrl {

bool ServiceHostWin::fillRandom(std::span<uint8_t> bytes) {
  return BCryptGenRandom(nullptr, bytes.data(), static_cast<ULONG>(bytes.size()),
                         BCRYPT_USE_SYSTEM_PREFERRED_RNG) >= 0;
}

bool ServiceHostWin::readPage(std::string& page) {
  // Not freed: a resource is part of the image and stays in memory as long as it does.
  HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(MARLUNE_PAGE), RT_RCDATA);
  if (found == nullptr) return false;
  HGLOBAL loaded = LoadResource(nullptr, found);
  if (loaded == nullptr) return false;
  page.assign(static_cast<const char*>(LockResource(loaded)), SizeofResource(nullptr, found));
  return true;
}

}  // namespace mrl

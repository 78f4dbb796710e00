// For tests of the Windows edges: replaces an imported system function with the test's own while
// this object lives. Affects only calls made by this executable itself.
#pragma once

#include <windows.h>

#include <cassert>
#include <cstddef>
#include <string_view>

namespace mrl {

template <class Function>
class ReplacedImport {
 public:
  /// REQUIRES: the executable imports a function of this name, and `own` has its signature.
  ReplacedImport(std::string_view name, Function* own) : slot(slotOf(name)) {
    assert(slot != nullptr);
    system = exchange(own);
  }
  ReplacedImport(const ReplacedImport&) = delete;
  ReplacedImport& operator=(const ReplacedImport&) = delete;
  ~ReplacedImport() { exchange(system); }

 private:
  template <class Part>
  static Part* at(char* image, DWORD offset) {
    return reinterpret_cast<Part*>(image + offset);
  }
  /// The import table slot with the function's address; null if it is not imported.
  static Function** slotOf(std::string_view name) {
    char* const image = reinterpret_cast<char*>(GetModuleHandleW(nullptr));
    const auto* const headers =
        at<IMAGE_NT_HEADERS>(image, at<IMAGE_DOS_HEADER>(image, 0)->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (const auto* library = at<IMAGE_IMPORT_DESCRIPTOR>(image, imports.VirtualAddress);
         library->Name != 0; ++library) {
      const auto* const names = at<IMAGE_THUNK_DATA>(image, library->OriginalFirstThunk);
      for (int i = 0; names[i].u1.AddressOfData != 0; ++i) {
        if (IMAGE_SNAP_BY_ORDINAL(names[i].u1.Ordinal)) continue;
        const auto offset = static_cast<DWORD>(names[i].u1.AddressOfData);
        if (name != at<const char>(image, offset + offsetof(IMAGE_IMPORT_BY_NAME, Name))) continue;
        return reinterpret_cast<Function**>(at<IMAGE_THUNK_DATA>(image, library->FirstThunk) + i);
      }
    }
    return nullptr;
  }
  Function* exchange(Function* function) const {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof function, PAGE_READWRITE, &protection);
    Function* const old = *slot;
    *slot = function;
    VirtualProtect(slot, sizeof function, protection, &protection);
    return old;
  }

  Function** slot;
  Function* system = nullptr;
};

}  // namespace mrl

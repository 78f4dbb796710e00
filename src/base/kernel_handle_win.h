// Unique ownership of a process, a token, an event or a file.
#pragma once

#include <windows.h>

#include "base/unique_handle.h"

namespace mrl {

struct KernelHandleTraits {
  static HANDLE none() { return nullptr; }
  static void close(HANDLE handle) { CloseHandle(handle); }
};

/// What CloseHandle closes. Holds null for nothing: a file that was not opened must not be put in.
using KernelHandle = UniqueHandle<KernelHandleTraits>;

}  // namespace mrl

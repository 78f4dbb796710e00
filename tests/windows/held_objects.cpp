#include "windows/held_objects.h"

// Needs <windows.h> first.
#include <winternl.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace mrl {
namespace {

/// One of 65,536 entries per process; `type` is 0 if the entry is free.
struct DrawingEntry {
  uint64_t object;
  uint32_t owner;
  uint16_t unique;
  uint8_t type;
  uint8_t flags;
  uint64_t user;
};
constexpr size_t kDrawingEntries = 65'536;
constexpr size_t kTableInEnvironment = 0xF8;  // offset of the table's address in the PEB

int drawingObjectsOf(HANDLE process) {
  PROCESS_BASIC_INFORMATION basic{};
  NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr);
  const auto* block = reinterpret_cast<const std::byte*>(basic.PebBaseAddress);
  const void* table = nullptr;
  ReadProcessMemory(process, block + kTableInEnvironment, &table, sizeof table, nullptr);
  std::vector<DrawingEntry> entries(kDrawingEntries);
  ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(DrawingEntry), nullptr);
  return static_cast<int>(
      std::ranges::count_if(entries, [](const DrawingEntry& entry) { return entry.type != 0; }));
}

struct HandleEntry {
  ULONG processId;
  UCHAR type;
  UCHAR flags;
  USHORT value;
  void* object;
  ULONG access;
};
constexpr auto kAllHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);

int handlesOf(DWORD processId) {
  std::vector<std::byte> bytes(1 << 20);
  if (NtQuerySystemInformation(kAllHandles, bytes.data(), static_cast<ULONG>(bytes.size()),
                               nullptr) < 0) {
    return 0;
  }
  const auto count = *reinterpret_cast<const ULONG*>(bytes.data());
  const auto* first = reinterpret_cast<const HandleEntry*>(bytes.data() + sizeof(void*));
  return static_cast<int>(std::count_if(first, first + count, [&](const HandleEntry& entry) {
    return entry.processId == processId;
  }));
}

/// Handles of these objects are numbered; freed numbers are reused first, in no order. After
/// kSurelyNew consecutive numbers all are new, and every number below is in use.
int windowObjects() {
  constexpr int kSurelyNew = 1000;
  constexpr int kFirstNumber = 0x20;
  constexpr int kStep = 2;
  std::vector<HMENU> made;
  int number = 0;
  for (int inARow = 0; inARow < kSurelyNew;) {
    made.push_back(CreateMenu());
    const int next = LOWORD(reinterpret_cast<UINT_PTR>(made.back()));
    inARow = next == number + kStep ? inARow + 1 : 0;
    number = next;
    if (made.back() == nullptr) break;
  }
  // In reverse, so that the next count gets them in the same order.
  for (auto menu = made.rbegin(); menu != made.rend(); ++menu) DestroyMenu(*menu);
  return (number - kFirstNumber) / kStep + 1 - static_cast<int>(made.size());
}

}  // namespace

HeldObjects heldObjectsOf(DWORD processId) {
  const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, processId);
  const HeldObjects held{drawingObjectsOf(process), windowObjects(), handlesOf(processId)};
  CloseHandle(process);
  return held;
}

}  // namespace mrl

// Version 2 of the counters' interface lives in kernel32 itself, so no further library is needed.
#define PSAPI_VERSION 2

#include "platform/memory_counters.h"

#include <windows.h>
// psapi.h builds on windows.h.
#include <psapi.h>

namespace platform {

std::optional<MemoryCounters> QueryMemoryCounters() {
  PROCESS_MEMORY_COUNTERS_EX counters = {};
  static_assert(sizeof(counters) == 80);
  if (K32GetProcessMemoryInfo(GetCurrentProcess(),
                              reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                              sizeof(counters)) == 0) {
    return std::nullopt;
  }
  return MemoryCounters{counters.WorkingSetSize, counters.PeakWorkingSetSize};
}

}  // namespace platform

#include "platform/memory_counters.h"

#include <fstream>
#include <string>

namespace platform {

std::optional<MemoryCounters> QueryMemoryCounters() {
  std::ifstream status("/proc/self/status");
  MemoryCounters counters;
  std::string label;
  while (status >> label) {
    std::uint64_t kilobytes = 0;
    if (label == "VmHWM:" && status >> kilobytes) {
      counters.peakWorkingSetBytes = kilobytes * 1024;
    } else if (label == "VmRSS:" && status >> kilobytes) {
      counters.workingSetBytes = kilobytes * 1024;
    }
  }
  if (counters.workingSetBytes == 0) {
    return std::nullopt;
  }
  return counters;
}

}  // namespace platform

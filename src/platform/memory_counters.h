// How much memory the process uses.
#pragma once

#include <cstdint>
#include <optional>

namespace platform {

struct MemoryCounters {
  std::uint64_t workingSetBytes = 0;
  std::uint64_t peakWorkingSetBytes = 0;
};

// The counters of the running process; nothing when the system does not give them.
std::optional<MemoryCounters> QueryMemoryCounters();

}  // namespace platform

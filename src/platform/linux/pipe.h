// Pipes.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <array>

#include "platform/linux/descriptor.h"

namespace platform {

struct Pipe {
  Descriptor reading;
  Descriptor writing;
};

// A pipe that no started program inherits by itself; not open when there cannot be one.
inline Pipe MakePipe() {
  std::array<int, 2> ends = {-1, -1};
  const bool isMade = pipe2(ends.data(), O_CLOEXEC) == 0;
  return {Descriptor(isMade ? ends[0] : -1), Descriptor(isMade ? ends[1] : -1)};
}

}  // namespace platform

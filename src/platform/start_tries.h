// Starting a program on a system that is short of something for a moment.
#pragma once

#include <chrono>
#include <functional>
#include <thread>

#include "platform/user.h"

namespace platform {

// Calls `start`, which returns 0 or the system's error number. As long as that is an error for
// which `isMomentary` holds, it is called again after a pause, for most of a second in all; a noted
// interruption ends that too. Returns what the last call did.
inline int TryToStart(const std::function<int()>& start, bool (*isMomentary)(int error)) {
  int error = start();
  for (std::chrono::milliseconds pause(25); pause <= std::chrono::milliseconds(400); pause *= 2) {
    if (error == 0 || !isMomentary(error) || IsInterrupted()) {
      break;
    }
    std::this_thread::sleep_for(pause);
    error = start();
  }
  return error;
}

}  // namespace platform

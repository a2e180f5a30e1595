// A process group that does not outlive this process.
#pragma once

#include <sys/types.h>

#include "platform/linux/pipe.h"

namespace platform {

// A new process group for a program and for whatever that starts. All of it is killed when its
// owner goes, and by a guard, which is its first member, when this process ends in any way. (The
// system itself would only kill this process's own children.)
class GuardedGroup {
 public:
  GuardedGroup();
  ~GuardedGroup();
  GuardedGroup(const GuardedGroup&) = delete;
  GuardedGroup& operator=(const GuardedGroup&) = delete;

  // The system's error number when there cannot be one, else 0.
  int Error() const { return error_; }

  // The group's number.
  pid_t Number() const { return guard_; }

 private:
  // The guard reads from it, and nobody ever writes.
  Pipe pipe_;
  pid_t guard_ = -1;
  int error_ = 0;
};

}  // namespace platform

#include "platform/linux/guarded_group.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace platform {
namespace {

// The guard's life: it waits for the end of the process that could write, and ends with its group.
[[noreturn]] void Guard(Pipe& pipe) {
  setpgid(0, 0);
  // Whoever kills all processes of this program's name does not mean this one.
  prctl(PR_SET_NAME, "converter-guard");
  // Also what another thread has made for a program of its own, which would wait for its end.
  const auto kept = static_cast<unsigned>(pipe.reading.Get());
  close_range(STDERR_FILENO + 1, kept - 1, 0);
  close_range(kept + 1, ~0U, 0);
  char nothing = 0;
  while (read(pipe.reading.Get(), &nothing, 1) < 0 && errno == EINTR) {
  }
  kill(-getpid(), SIGKILL);
  _exit(0);
}

}  // namespace

GuardedGroup::GuardedGroup() : pipe_(MakePipe()) {
  guard_ = pipe_.reading.IsOpen() ? fork() : -1;
  if (guard_ < 0) {
    error_ = errno;
    return;
  }
  if (guard_ == 0) {
    Guard(pipe_);
  }
  // Whichever of the two processes comes first: the group is there when this returns.
  setpgid(guard_, guard_);
}

GuardedGroup::~GuardedGroup() {
  if (guard_ > 0) {
    // Where the signal cannot be sent the guard sends it.
    pipe_.writing.Close();
    kill(-guard_, SIGKILL);
    while (waitpid(guard_, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
}

}  // namespace platform

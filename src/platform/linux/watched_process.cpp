#include "platform/watched_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <future>
#include <optional>

#include "platform/line_splitter.h"
#include "platform/linux/guarded_group.h"
#include "platform/linux/last_error.h"
#include "platform/linux/pipe.h"
#include "platform/start_tries.h"
#include "platform/user.h"

namespace platform {
namespace {

// How often a noted interruption is looked for while the program is silent.
constexpr int kLookMilliseconds = 100;

// Room for what comes meanwhile: a picture or two.
constexpr int kPipeBytes = 1 << 20;

// A started program, killed when it is left before its end.
class Child {
 public:
  explicit Child(pid_t process) : process_(process) {}
  ~Child() {
    if (!HasEnded()) {
      kill(process_, SIGKILL);
      Status();
    }
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  bool HasEnded() { return hasEnded_ || Take(WNOHANG); }

  // Waits for the end and returns the status word.
  int Status() {
    while (!hasEnded_ && !Take(0)) {
    }
    return status_;
  }

 private:
  bool Take(int options) {
    const pid_t taken = waitpid(process_, &status_, options);
    hasEnded_ = taken == process_ || (taken < 0 && errno == ECHILD);
    return hasEnded_;
  }

  pid_t process_;
  bool hasEnded_ = false;
  int status_ = 0;
};

// What is started, and where.
struct Start {
  const char* program = nullptr;
  char** arguments = nullptr;
  const char* folder = nullptr;
  // The null device without one.
  int input = -1;
  int output = -1;
  int errors = -1;
};

// The child's side of the start. A failure goes through `failure` as the system's error number.
[[noreturn]] void BecomeProgram(const Start& start, pid_t group, pid_t parent, int failure) {
  setpgid(0, group);
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) {
    // The parent ended before the line above.
    _exit(127);
  }
  std::signal(SIGPIPE, SIG_DFL);
  const int input = start.input >= 0 ? start.input : open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (input >= 0 && dup2(input, STDIN_FILENO) >= 0 && dup2(start.output, STDOUT_FILENO) >= 0 &&
      dup2(start.errors, STDERR_FILENO) >= 0 && chdir(start.folder) == 0) {
    execv(start.program, start.arguments);
  }
  const int error = errno;
  [[maybe_unused]] const ssize_t written = write(failure, &error, sizeof(error));
  _exit(127);
}

// Starts the program as `process` in a group. Returns 0, or the system's error number.
int TryOnce(const Start& start, pid_t group, pid_t& process) {
  Pipe failure = MakePipe();
  if (!failure.reading.IsOpen()) {
    return errno;
  }
  const pid_t parent = getpid();
  const pid_t child = fork();
  if (child < 0) {
    return errno;
  }
  if (child == 0) {
    BecomeProgram(start, group, parent, failure.writing.Get());
  }
  failure.writing.Close();
  // The other end closes when the program begins.
  int error = 0;
  ssize_t got = 0;
  while ((got = read(failure.reading.Get(), &error, sizeof(error))) < 0 && errno == EINTR) {
  }
  if (got == static_cast<ssize_t>(sizeof(error))) {
    waitpid(child, nullptr, 0);
    return error;
  }
  process = child;
  return 0;
}

bool IsMomentary(int error) {
  return error == EAGAIN || error == ENOMEM || error == ENFILE || error == ETXTBSY;
}

// One of the program's pipes, and who takes what comes out of it.
struct Outlet {
  int reading = -1;
  std::function<void(std::string_view)> take;
};

// Passes one piece on. Returns false at the end of the pipe.
bool PassOn(const Outlet& outlet) {
  std::array<char, kPipeBytes / 4> buffer;
  const ssize_t count = read(outlet.reading, buffer.data(), buffer.size());
  if (count > 0) {
    outlet.take({buffer.data(), static_cast<std::size_t>(count)});
  }
  return count > 0 || (count < 0 && (errno == EINTR || errno == EAGAIN));
}

// Passes on what comes, to the ends of all pipes or, should one of them never end, of the program.
// Returns false when it was left for an interruption.
bool PassOnAll(std::vector<Outlet> outlets, Child& child) {
  while (!outlets.empty()) {
    if (IsInterrupted()) {
      return false;
    }
    std::vector<pollfd> ends;
    ends.reserve(outlets.size());
    for (const Outlet& outlet : outlets) {
      ends.push_back({outlet.reading, POLLIN, 0});
    }
    const bool mayEnd = child.HasEnded();
    const int ready = poll(ends.data(), ends.size(), kLookMilliseconds);
    if (ready <= 0 && mayEnd) {
      return true;
    }
    for (std::size_t index = ready > 0 ? ends.size() : 0; index-- > 0;) {
      if (ends[index].revents != 0 && !PassOn(outlets[index])) {
        outlets.erase(outlets.begin() + static_cast<std::ptrdiff_t>(index));
      }
    }
  }
  return true;
}

// Waits for the end of a program whose pipes have ended, a moment before it or long before. Returns
// false when it was left for an interruption.
bool WaitForEnd(Child& child) {
  for (int pause = 1; !child.HasEnded(); pause = std::min(pause + 1, kLookMilliseconds)) {
    if (IsInterrupted()) {
      return false;
    }
    poll(nullptr, 0, pause);
  }
  return true;
}

std::string DescribeEnd(int status) {
  if (WIFSIGNALED(status)) {
    return std::string("signal ") + strsignal(WTERMSIG(status));
  }
  return WEXITSTATUS(status) == 0 ? "" : "status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

Result<ProcessEnd> RunWatched(const std::filesystem::path& program,
                              const std::vector<std::string>& arguments,
                              const std::filesystem::path& folder,
                              const std::function<void(std::string_view)>& output,
                              const std::function<void(const std::string&)>& errorLine,
                              const std::function<void()>& holdInput) {
  std::vector<std::string> words = {program.native()};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> vector;
  vector.reserve(words.size() + 1);
  for (std::string& word : words) {
    vector.push_back(word.data());
  }
  vector.push_back(nullptr);
  // Before the pipes, whose ends it would keep open.
  std::optional<GuardedGroup> group;
  if (const int error = TryToStart([&] { return group.emplace().Error(); }, IsMomentary);
      error != 0) {
    return ErrorOf(error);
  }
  Pipe input = holdInput ? MakePipe() : Pipe();
  Pipe outputs = MakePipe();
  Pipe errors = MakePipe();
  if (!outputs.reading.IsOpen() || !errors.reading.IsOpen() ||
      (holdInput && !input.reading.IsOpen())) {
    return LastError();
  }
  // As much as the system gives.
  fcntl(outputs.reading.Get(), F_SETPIPE_SZ, kPipeBytes);
  const Start what = {program.c_str(),     vector.data(),         folder.c_str(),
                      input.reading.Get(), outputs.writing.Get(), errors.writing.Get()};
  pid_t process = 0;
  const auto start = [&] { return TryOnce(what, group->Number(), process); };
  if (const int error = TryToStart(start, IsMomentary); error != 0) {
    return ErrorOf(error);
  }
  // Its end waits.
  std::future<void> held;
  Child child(process);
  if (holdInput) {
    held = std::async(std::launch::async, [&] {
      holdInput();
      input.writing.Close();
    });
  }
  outputs.writing.Close();
  errors.writing.Close();
  LineSplitter errorLines(errorLine);
  const bool isWhole =
      PassOnAll({{outputs.reading.Get(), output},
                 {errors.reading.Get(), [&](std::string_view piece) { errorLines.Take(piece); }}},
                child) &&
      WaitForEnd(child);
  if (!isWhole) {
    return ProcessEnd{true, ""};
  }
  errorLines.Finish();
  return ProcessEnd{false, DescribeEnd(child.Status())};
}

}  // namespace platform

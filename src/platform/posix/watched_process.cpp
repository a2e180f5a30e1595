#include "platform/watched_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "platform/line_splitter.h"
#include "platform/user.h"

namespace platform {
namespace {

// How often a noted interruption is looked for while the program is silent.
constexpr int kLookMilliseconds = 100;

class Pipe {
 public:
  Pipe() {
    if (pipe2(ends_.data(), O_CLOEXEC) != 0) {
      ends_ = {-1, -1};
    }
  }
  ~Pipe() {
    CloseReading();
    CloseWriting();
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  bool IsOpen() const { return ends_[0] >= 0; }
  int Reading() const { return ends_[0]; }
  int Writing() const { return ends_[1]; }
  void CloseReading() { CloseEnd(ends_[0]); }
  void CloseWriting() { CloseEnd(ends_[1]); }

 private:
  static void CloseEnd(int& end) {
    if (end >= 0) {
      close(end);
      end = -1;
    }
  }

  std::array<int, 2> ends_ = {-1, -1};
};

// A started program, killed with its own children when it is left before its end.
class Child {
 public:
  explicit Child(pid_t process) : process_(process) {}
  ~Child() {
    if (!HasEnded()) {
      kill(-process_, SIGKILL);
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

// The child's side of the start. A failure goes through `failure` as the system's error number.
[[noreturn]] void BecomeProgram(const char* program, char** arguments, const char* folder,
                                pid_t parent, const Pipe& output, const Pipe& errors,
                                const Pipe& failure) {
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) {
    // The parent ended before the line above.
    _exit(127);
  }
  std::signal(SIGPIPE, SIG_DFL);
  const int input = open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (input >= 0 && dup2(input, STDIN_FILENO) >= 0 && dup2(output.Writing(), STDOUT_FILENO) >= 0 &&
      dup2(errors.Writing(), STDERR_FILENO) >= 0 && chdir(folder) == 0) {
    execv(program, arguments);
  }
  const int error = errno;
  [[maybe_unused]] const ssize_t written = write(failure.Writing(), &error, sizeof(error));
  _exit(127);
}

// One of the program's pipes, and who takes what comes out of it.
struct Outlet {
  int reading = -1;
  std::function<void(std::string_view)> take;
};

// Passes one piece on. Returns false at the end of the pipe.
bool PassOn(const Outlet& outlet) {
  std::array<char, 65536> buffer;
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

std::string DescribeEnd(int status) {
  if (WIFSIGNALED(status)) {
    return std::string("signal ") + strsignal(WTERMSIG(status));
  }
  return WEXITSTATUS(status) == 0 ? "" : "status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

ProcessEnd RunWatched(const std::filesystem::path& program,
                      const std::vector<std::string>& arguments,
                      const std::filesystem::path& folder,
                      const std::function<void(const std::string&)>& outputLine,
                      const std::function<void(const std::string&)>& errorLine) {
  std::vector<std::string> words = {program.native()};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> vector;
  vector.reserve(words.size() + 1);
  for (std::string& word : words) {
    vector.push_back(word.data());
  }
  vector.push_back(nullptr);
  Pipe output;
  Pipe errors;
  Pipe failure;
  if (!output.IsOpen() || !errors.IsOpen() || !failure.IsOpen()) {
    return {std::strerror(errno), false, ""};
  }
  const pid_t parent = getpid();
  const pid_t process = fork();
  if (process < 0) {
    return {std::strerror(errno), false, ""};
  }
  if (process == 0) {
    BecomeProgram(program.c_str(), vector.data(), folder.c_str(), parent, output, errors, failure);
  }
  Child child(process);
  output.CloseWriting();
  errors.CloseWriting();
  failure.CloseWriting();
  LineSplitter outputLines(outputLine);
  LineSplitter errorLines(errorLine);
  std::string startError;
  const bool isWhole =
      PassOnAll({{output.Reading(), [&](std::string_view piece) { outputLines.Take(piece); }},
                 {errors.Reading(), [&](std::string_view piece) { errorLines.Take(piece); }},
                 {failure.Reading(), [&](std::string_view piece) { startError += piece; }}},
                child);
  if (!isWhole) {
    return {"", true, ""};
  }
  if (int error = 0; startError.size() == sizeof(error)) {
    std::memcpy(&error, startError.data(), sizeof(error));
    return {std::strerror(error), false, ""};
  }
  outputLines.Finish();
  errorLines.Finish();
  return {"", false, DescribeEnd(child.Status())};
}

}  // namespace platform

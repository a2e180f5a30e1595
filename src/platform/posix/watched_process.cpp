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
    if (process_ > 0) {
      Kill();
      Wait();
    }
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  void Kill() const {
    kill(-process_, SIGKILL);
    kill(process_, SIGKILL);
  }

  // Waits for the end and returns the status word.
  int Wait() {
    int status = 0;
    while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = 0;
    return status;
  }

 private:
  pid_t process_;
};

// The child's side of the start. A failure goes through `failure` as the system's error number.
[[noreturn]] void BecomeProgram(const char* program, char** arguments, const char* folder,
                                pid_t parent, const Pipe& output, const Pipe& errors, const Pipe& failure) {
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
  static_cast<void>(!write(failure.Writing(), &error, sizeof(error)));
  _exit(127);
}

// The error number that a failed start left in the pipe; 0 after a good one, which closed it.
int StartError(const Pipe& failure) {
  int error = 0;
  ssize_t count = 0;
  do {
    count = read(failure.Reading(), &error, sizeof(error));
  } while (count < 0 && errno == EINTR);
  return count == sizeof(error) ? error : 0;
}

// Passes one piece on. Returns false at the end of the pipe.
bool PassOn(int reading, LineSplitter& lines) {
  std::array<char, 65536> buffer;
  const ssize_t count = read(reading, buffer.data(), buffer.size());
  if (count > 0) {
    lines.Take({buffer.data(), static_cast<std::size_t>(count)});
  }
  return count > 0 || (count < 0 && (errno == EINTR || errno == EAGAIN));
}

// Returns false when it was left for an interruption.
bool PassOnAll(Pipe& output, Pipe& errors, LineSplitter& outputLines, LineSplitter& errorLines) {
  std::array<pollfd, 2> ends = {pollfd{output.Reading(), POLLIN, 0},
                                pollfd{errors.Reading(), POLLIN, 0}};
  std::array<LineSplitter*, 2> lines = {&outputLines, &errorLines};
  while (ends[0].fd >= 0 || ends[1].fd >= 0) {
    if (IsInterrupted()) {
      return false;
    }
    poll(ends.data(), ends.size(), kLookMilliseconds);
    for (std::size_t index = 0; index < ends.size(); ++index) {
      if (ends[index].fd >= 0 && ends[index].revents != 0 &&
          !PassOn(ends[index].fd, *lines[index])) {
        ends[index].fd = -1;
      }
      ends[index].revents = 0;
    }
  }
  outputLines.Finish();
  errorLines.Finish();
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
  if (const int error = StartError(failure); error != 0) {
    return {std::strerror(error), false, ""};
  }
  LineSplitter outputLines(outputLine);
  LineSplitter errorLines(errorLine);
  if (!PassOnAll(output, errors, outputLines, errorLines)) {
    child.Kill();
    child.Wait();
    return {"", true, ""};
  }
  return {"", false, DescribeEnd(child.Wait())};
}

}  // namespace platform

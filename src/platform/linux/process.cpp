#include "platform/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include "platform/linux/command_line_splitter.h"
#include "platform/linux/native_path.h"

namespace platform {
namespace {

// Puts the null device in place of the child's standard input, output and error: a program without
// a window has none of them either.
class NullDeviceActions {
 public:
  NullDeviceActions() {
    posix_spawn_file_actions_init(&actions_);
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      posix_spawn_file_actions_addopen(&actions_, descriptor, "/dev/null", O_RDWR, 0);
    }
  }
  ~NullDeviceActions() { posix_spawn_file_actions_destroy(&actions_); }
  NullDeviceActions(const NullDeviceActions&) = delete;
  NullDeviceActions& operator=(const NullDeviceActions&) = delete;

  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_ = {};
};

}  // namespace

std::optional<int> RunHidden(const std::string& applicationPath, const std::string& commandLine) {
  std::vector<std::string> arguments = SplitCommandLine(commandLine);
  std::vector<char*> vector;
  for (std::string& argument : arguments) {
    argument = NativePath(argument);
    vector.push_back(argument.data());
  }
  vector.push_back(nullptr);
  const NullDeviceActions actions;
  pid_t child = 0;
  const int error = posix_spawn(&child, NativePath(applicationPath).c_str(), actions.Get(), nullptr,
                                vector.data(), environ);
  if (error != 0) {
    return error;
  }
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
  return std::nullopt;
}

}  // namespace platform

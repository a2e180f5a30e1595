#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <system_error>

#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"

ProgramResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::string& folder) {
  const TempFolder caught;
  std::vector<char*> words = {const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) {
    words.push_back(const_cast<char*>(argument.c_str()));
  }
  words.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  const auto open = [&actions](int descriptor, const std::string& path, int flags) {
    posix_spawn_file_actions_addopen(&actions, descriptor, path.c_str(), flags, S_IRUSR | S_IWUSR);
  };
  open(STDIN_FILENO, "/dev/null", O_RDONLY);
  open(STDOUT_FILENO, caught.Path() + "/out", O_WRONLY | O_CREAT);
  open(STDERR_FILENO, caught.Path() + "/err", O_WRONLY | O_CREAT);
  posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
  pid_t process = 0;
  const int error =
      posix_spawn(&process, program.c_str(), &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) {
    throw std::system_error(error, std::system_category(), program);
  }
  int status = 0;
  waitpid(process, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, caught.Read("out"), caught.Read("err")};
}

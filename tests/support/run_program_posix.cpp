#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"

ProgramResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::string& folder) {
  const TempFolder caught;
  const std::string output = caught.Path() + "/out";
  const std::string errors = caught.Path() + "/err";
  std::vector<char*> vector = {const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) {
    vector.push_back(const_cast<char*>(argument.c_str()));
  }
  vector.push_back(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
    dup2(open(output.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600), STDOUT_FILENO);
    dup2(open(errors.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600), STDERR_FILENO);
    if (chdir(folder.c_str()) == 0) {
      execv(program.c_str(), vector.data());
    }
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, caught.Read("out"), caught.Read("err")};
}

void SetProcessVariable(const std::string& name, const char* value) {
  if (value == nullptr) {
    unsetenv(name.c_str());
  } else {
    setenv(name.c_str(), value, 1);
  }
}

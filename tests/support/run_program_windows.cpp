#include <windows.h>

#include <cstdlib>

#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"

namespace {

HANDLE OpenInheritable(const std::string& path, DWORD access, DWORD creation) {
  SECURITY_ATTRIBUTES inheritable = {sizeof(inheritable), nullptr, TRUE};
  return CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable,
                     creation, FILE_ATTRIBUTE_NORMAL, nullptr);
}

// The tests' arguments hold no backslash before a quote, so quoting is all it takes.
std::string CommandLine(const std::string& program, const std::vector<std::string>& arguments) {
  std::string line = "\"" + program + "\"";
  for (const std::string& argument : arguments) {
    line += " \"" + argument + "\"";
  }
  return line;
}

}  // namespace

ProgramResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::string& folder) {
  const TempFolder caught;
  STARTUPINFOA startUp = {};
  startUp.cb = sizeof(startUp);
  startUp.dwFlags = STARTF_USESTDHANDLES;
  startUp.hStdInput = OpenInheritable("NUL", GENERIC_READ, OPEN_EXISTING);
  startUp.hStdOutput = OpenInheritable(caught / "out", GENERIC_WRITE, CREATE_ALWAYS);
  startUp.hStdError = OpenInheritable(caught / "err", GENERIC_WRITE, CREATE_ALWAYS);
  PROCESS_INFORMATION created = {};
  std::string line = CommandLine(program, arguments);
  DWORD status = static_cast<DWORD>(-1);
  if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, folder.c_str(),
                     &startUp, &created) != 0) {
    WaitForSingleObject(created.hProcess, INFINITE);
    GetExitCodeProcess(created.hProcess, &status);
    CloseHandle(created.hProcess);
    CloseHandle(created.hThread);
  }
  CloseHandle(startUp.hStdInput);
  CloseHandle(startUp.hStdOutput);
  CloseHandle(startUp.hStdError);
  return {static_cast<int>(status), caught.Read("out"), caught.Read("err")};
}

void SetProcessVariable(const std::string& name, const char* value) {
  _putenv_s(name.c_str(), value == nullptr ? "" : value);
}

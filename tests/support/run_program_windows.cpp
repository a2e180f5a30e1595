#include <windows.h>

#include <regex>
#include <system_error>

#include "platform/owned.h"
#include "platform/start_tries.h"
#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"

namespace {

using Handle = platform::Owned<HANDLE, CloseHandle>;

// `word` as the usual rules for command lines read it back.
std::string Quoted(const std::string& word) {
  const std::string inside = std::regex_replace(word, std::regex(R"re((\\*)")re"), R"($1$1\")");
  return '"' + std::regex_replace(inside, std::regex(R"((\\+)$)"), "$1$1") + '"';
}

Handle OpenForChild(const std::string& path, DWORD access) {
  SECURITY_ATTRIBUTES inheritable = {sizeof(inheritable), nullptr, TRUE};
  return Handle(CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable,
                            OPEN_ALWAYS, 0, nullptr));
}

}  // namespace

ProgramResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::string& folder) {
  const TempFolder caught;
  std::string line = Quoted(program);
  for (const std::string& argument : arguments) {
    line += " " + Quoted(argument);
  }
  const Handle input = OpenForChild("NUL", GENERIC_READ);
  const Handle output = OpenForChild(caught / "out", GENERIC_WRITE);
  const Handle errors = OpenForChild(caught / "err", GENERIC_WRITE);
  STARTUPINFOA startUp = {};
  startUp.cb = sizeof(startUp);
  startUp.dwFlags = STARTF_USESTDHANDLES;
  startUp.hStdInput = input.get();
  startUp.hStdOutput = output.get();
  startUp.hStdError = errors.get();
  PROCESS_INFORMATION created = {};
  // Detached: a console of its own would be a further process to start. The program's own way of
  // starting another: what a busy system says is no fault of what is tested.
  const int error = platform::TryToStart(
      [&] {
        const bool isStarted =
            CreateProcessA(program.c_str(), line.data(), nullptr, nullptr, TRUE, DETACHED_PROCESS,
                           nullptr, folder.c_str(), &startUp, &created) != 0;
        return isStarted ? 0 : static_cast<int>(GetLastError());
      },
      [](int number) { return number == ERROR_INTERNAL_ERROR; });
  if (error != 0) {
    throw std::system_error(error, std::system_category(), program);
  }
  const Handle thread(created.hThread);
  const Handle process(created.hProcess);
  WaitForSingleObject(process.get(), INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(process.get(), &status);
  return {static_cast<int>(status), caught.Read("out"), caught.Read("err")};
}

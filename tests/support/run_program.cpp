#include "tests/support/run_program.h"

#include <cstdlib>

#include "tests/support/temp_folder.h"

namespace {

// One word for the system's command interpreter. On Windows no argument may hold a quote.
std::string Quoted(const std::string& text) {
  if (kIsWindows) {
    return "\"" + text + "\"";
  }
  std::string quoted = "'";
  for (const char c : text) {
    quoted += c == '\'' ? "'\\''" : std::string(1, c);
  }
  return quoted + "'";
}

}  // namespace

ProgramResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::string& folder) {
  const TempFolder caught;
  std::string line = (kIsWindows ? "cd /d " : "cd ") + Quoted(folder) + " && " + Quoted(program);
  for (const std::string& argument : arguments) {
    line += " " + Quoted(argument);
  }
  line += kIsWindows ? " <NUL" : " </dev/null";
  line += " >" + Quoted(caught.Path() + "/out") + " 2>" + Quoted(caught.Path() + "/err");
  // On a busy machine Wine's interpreter now and then fails to start a program, which then has done
  // nothing.
  constexpr int kNotStarted = 9009;
  int status = kNotStarted;
  for (int tries = 0; status == kNotStarted && tries < 5; ++tries) {
    // NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe): the line is this test's own.
    status = std::system((kIsWindows ? "\"" + line + "\"" : line).c_str());
  }
  return {kIsWindows ? status : status >> 8, caught.Read("out"), caught.Read("err")};
}

// Running a program and catching what it prints.
#pragma once

#include <string>
#include <vector>

#include "platform/program.h"

inline const bool kIsWindows = platform::ExecutableFileName("") == ".exe";

struct ProgramResult {
  int exitStatus = -1;
  std::string output;
  std::string errors;
};

// Runs `program` with `arguments` in the folder `folder`, standard input at its end, and waits for
// it. Line ends in the result are "\n". The program gets this process's environment. Throws
// std::system_error when the system refuses to start it.
ProgramResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::string& folder);

// What the running program is, in the narrow texts of the console program's contract. (Where
// TessaraAnimate looks for programs, with paths of any length, is in program_search.h.)
#pragma once

#include <string>

namespace platform {

// The folder of the running program's executable, without a separator at its end; on Windows cut as
// the program's path is by the system call that has room for 260 characters.
std::string OwnProgramFolder();

// The file name of an executable program with the given bare name on this system.
std::string ExecutableFileName(const std::string& bareName);

// A handle of the program's own module, never null while the program runs normally.
const void* OwnModule();

// The command line as the system handed it to the process.
std::string RawCommandLine();

// The log line that says which build is running.
const char* ApplicationLine();

}  // namespace platform

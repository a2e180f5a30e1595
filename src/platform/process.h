// Running the converter to its end as the console program does it: with one command line that is
// passed on as it is, its output nowhere, started once and waited for without time-out, all as the
// contract has it. (TessaraAnimate listens to it and ends with it: watched_process.h.)
#pragma once

#include <optional>
#include <string>

namespace platform {

// Starts the program at `applicationPath` without any window and waits, without time-out, until it
// has ended. `commandLine` is the whole command line that the program sees; its path is not put in
// front, so the text before the first blank takes the place of the program's name. Where a program
// gets an argument vector instead, the command line is split by the Windows quoting rules and
// backslashes in the arguments become slashes.
// Returns nothing when the program was started and has ended, whatever its exit code; otherwise
// the system's error number for the failed start.
std::optional<int> RunHidden(const std::string& applicationPath, const std::string& commandLine);

}  // namespace platform

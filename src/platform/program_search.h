// Where programs are looked for, for TessaraAnimate. (What the console program needs of its own
// program, in the narrow texts of its contract, is in program.h.)
#pragma once

#include <filesystem>
#include <vector>

namespace platform {

// The folder of the running program.
std::filesystem::path ProgramFolder();

// The path in an environment variable; empty when it is not set.
std::filesystem::path PathVariable(const char* name);

// The folders in which the system looks for programs.
std::vector<std::filesystem::path> ProgramSearchFolders();

// Whether there is a file at `path` that this user may start, as far as the system can tell before.
bool IsProgram(const std::filesystem::path& path);

}  // namespace platform

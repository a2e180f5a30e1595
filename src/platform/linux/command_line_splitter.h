// The Windows rules by which a program takes its command line apart.
#pragma once

#include <string>
#include <vector>

namespace platform {

// Splits a command line into arguments. The text before the first blank is the first of them, the
// program's name, and empty when the line begins with a blank. After it, blanks and tabs separate
// arguments except inside double quotes; backslashes are plain characters unless a quote follows:
// then each pair of them is one backslash and an odd one makes the quote a plain character. Two
// quotes in a row inside a quoted stretch are one plain quote.
std::vector<std::string> SplitCommandLine(const std::string& commandLine);

}  // namespace platform

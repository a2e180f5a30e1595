// Console output.
#pragma once

// Prints to standard output, printf style.
[[gnu::format(printf, 1, 2)]] void ConsolePrint(const char* format, ...);

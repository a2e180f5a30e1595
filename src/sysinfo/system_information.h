// The lines at the head of each run's log: which build runs, and on which system.
#pragma once

#include <cstddef>

#include "text/cstring.h"

// Logs the version of the program and which build it is.
void LogVersionInfo();

// Logs the operating system's description; an empty one when it is not known.
void LogOSVersion();

// Writes the operating system's description to `text`, a buffer of `capacity` characters, cut to
// what fits and always ended by a zero. Returns false, with the buffer untouched, when the system
// does not give its version or is older than the version table.
bool GetVersionString(wchar_t* text, std::size_t capacity);

// The process's current and peak memory use as a text; empty when the system does not give them.
// Part of the fixed interface, for whoever measures a run; the programs do not call it.
CString LogPeakMemoryUsage();

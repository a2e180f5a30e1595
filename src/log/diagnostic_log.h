// The diagnostic log: one text file that every run appends to, one time-stamped line a call.
#pragma once

#include "text/cstring.h"

// Fixes the temp root from the environment and sets the log to the fixed file name in it; the first
// thing that a run does.
void StartLog();

// Sets the log file. With `exactPath` the file is `path` itself; without it, `path` is a file name
// inside the dated folder under the temp root, which has to exist already. A log that exists is
// opened at once, a missing one is created by the first line. Returns true always. The programs
// name the exact path; the dated folder is part of the fixed interface, for other callers.
bool InitLog(const CString& path, bool exactPath);

// Appends one line, "[hour:minute:second, day-month-year] " in local time and the message as it
// is. With `showBox`, which is there for other callers than the programs, the message is also shown
// in an error box. The file is open only while a line is written, so a crash loses one line at most
// and the log can be read, copied or deleted between lines. A line that cannot be written is lost
// silently.
void WriteLog(const CString& message, bool showBox = false);

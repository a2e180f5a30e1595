// The checks that come before anything is made.
#pragma once

#include "text/cstring.h"

// Checks that the input folder exists, that the output file's extension is a supported animation
// format, and that the output file's folder exists when a backslash separates one from its name.
// Returns true when all of that holds; otherwise one error line is printed and false returned. The
// current folder of the process is the same after the call as before it.
bool Validate(const CString& inputFolder, const CString& outputFile);

// The folder that holds the log and the working files of a run.
#pragma once

#include "text/cstring.h"

// The temp root: fixed once at the start of a run; folder of the log, of the converter's palette
// and of the sweeps for leftover working images.
inline CString g_tempRoot;

// Finds the temp root from the environment: the value of TESSARA_TEMP_PATH (created when missing);
// else the folder "\Tessara" under TEMP (created when missing), or TEMP itself when that folder
// cannot be made or carries any attribute beyond being a folder; else TMP as it is; else a
// "\Tessara" folder under the system's own temporary folder, by the rule for TEMP.
// Returns the folder without a trailing backslash unless the variable's value has one. Does not
// fail: a folder that cannot be created is returned all the same.
CString GetTempRootFolder();

// The name of a folder under `root` that carries the local date and time down to the second, for
// instance C:\Temp\Tessara\Orbitane-2026-1-6-9-5-3. Creates nothing.
CString GetDatedFolderName(const CString& root);

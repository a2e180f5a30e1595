// Folders: creating one, the current one, the system's temporary one.
#pragma once

#include <string>

namespace platform {

// Creates one folder (its parent must exist). Returns false when it could not be created, also
// when it exists already.
bool MakeFolder(const std::string& path);

// The full path of the process's current folder; empty when the system does not give it.
std::string CurrentFolder();

// Makes `path` the process's current folder. Returns false when it is no folder that can be
// entered; the current folder then stays as it was.
bool EnterFolder(const std::string& path);

// The operating system's folder for temporary files, without a separator at its end.
std::string SystemTempFolder();

}  // namespace platform

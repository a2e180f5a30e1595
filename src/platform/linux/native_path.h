// The one place where the program's backslashes become the separators of this system.
#pragma once

#include <algorithm>
#include <string>

namespace platform {

// `path` with every backslash as a slash. Called at the moment a file is touched and not before,
// so that all texts that the program forms and logs read alike on every system.
inline std::string NativePath(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

}  // namespace platform

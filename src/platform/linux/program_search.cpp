#include "platform/program_search.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "platform/file_status.h"
#include "platform/program.h"

namespace platform {
namespace fs = std::filesystem;

fs::path ProgramFolder() {
  return OwnProgramFolder();
}

fs::path PathVariable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::vector<fs::path> ProgramSearchFolders() {
  std::vector<fs::path> folders;
  const std::string all = PathVariable("PATH").native();
  for (std::size_t at = 0; at <= all.size();) {
    const std::size_t end = std::min(all.find(':', at), all.size());
    folders.emplace_back(all.substr(at, end - at));
    at = end + 1;
  }
  return folders;
}

bool IsProgram(const fs::path& path) {
  return QueryStatus(path).kind == FileKind::kFile &&
         faccessat(AT_FDCWD, path.c_str(), X_OK, AT_EACCESS) == 0;
}

}  // namespace platform

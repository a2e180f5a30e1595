#include "platform/paths.h"

#include <system_error>

namespace platform {
namespace fs = std::filesystem;

fs::path PathFromText(const std::string& text) {
  return text;
}

std::string TextOfPath(const fs::path& path) {
  return path.native();
}

fs::path FullPath(const fs::path& path) {
  std::error_code error;
  fs::path full;
  for (const fs::path& part : fs::absolute(path, error)) {
    if (part == "..") {
      // Behind a link it is the folder above the one that the link leads to.
      const fs::path above = fs::canonical(full / part, error);
      full = error ? full / part : above;
    } else if (!part.empty() && part != ".") {
      full /= part;
    }
  }
  return full;
}

std::string ArgumentOfPath(const fs::path& path) {
  return path.native();
}

}  // namespace platform

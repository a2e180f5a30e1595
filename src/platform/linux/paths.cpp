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
  fs::path full = fs::absolute(path, error).lexically_normal();
  return full.has_filename() || !full.has_relative_path() ? full : full.parent_path();
}

std::string ArgumentOfPath(const fs::path& path) {
  return path.native();
}

}  // namespace platform

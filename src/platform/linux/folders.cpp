#include "platform/folders.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/linux/native_path.h"

namespace platform {

bool MakeFolder(const std::string& path) {
  return mkdir(NativePath(path).c_str(), 0777) == 0;
}

std::string CurrentFolder() {
  std::error_code error;
  return std::filesystem::current_path(error).string();
}

bool EnterFolder(const std::string& path) {
  return chdir(NativePath(path).c_str()) == 0;
}

std::string SystemTempFolder() {
  const char* configured = std::getenv("TMPDIR");
  return configured != nullptr && *configured != '\0' ? configured : "/tmp";
}

}  // namespace platform

#include "platform/files.h"

#include <windows.h>

namespace platform {

bool CopyFileReplacing(const std::string& from, const std::string& to) {
  return CopyFileA(from.c_str(), to.c_str(), FALSE) != 0;
}

bool RemoveFile(const std::string& path) {
  return DeleteFileA(path.c_str()) != 0;
}

std::optional<std::uint32_t> QueryAttributes(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return std::nullopt;
  }
  return attributes;
}

OwnedFile OpenFile(const std::string& path, const char* mode) {
  return OwnedFile(std::fopen(path.c_str(), mode));
}

}  // namespace platform

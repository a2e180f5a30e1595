#include "platform/files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

#include "platform/linux/native_path.h"

namespace platform {
namespace {

constexpr mode_t kAnyWritePermission = S_IWUSR | S_IWGRP | S_IWOTH;

}  // namespace

bool CopyFileReplacing(const std::string& from, const std::string& to) {
  std::error_code error;
  return std::filesystem::copy_file(NativePath(from), NativePath(to),
                                    std::filesystem::copy_options::overwrite_existing, error);
}

bool RemoveFile(const std::string& path) {
  const std::string native = NativePath(path);
  struct stat status = {};
  if (lstat(native.c_str(), &status) != 0 || (status.st_mode & kAnyWritePermission) == 0) {
    return false;
  }
  return unlink(native.c_str()) == 0;
}

std::optional<std::uint32_t> QueryAttributes(const std::string& path) {
  constexpr std::uint32_t kReadOnly = 0x1;
  constexpr std::uint32_t kOrdinaryFile = 0x80;
  const std::string native = NativePath(path);
  struct stat status = {};
  if (stat(native.c_str(), &status) != 0) {
    return std::nullopt;
  }
  std::uint32_t attributes = S_ISDIR(status.st_mode) ? kFolderAttribute : kOrdinaryFile;
  if (access(native.c_str(), W_OK) != 0) {
    attributes |= kReadOnly;
  }
  return attributes;
}

OwnedFile OpenFile(const std::string& path, const char* mode) {
  const std::string native = NativePath(path);
  OwnedFile file(std::fopen(native.c_str(), mode));
  struct stat status = {};
  // A folder can be opened for reading here, and then fails at the first read.
  if (file && fstat(fileno(file.get()), &status) == 0 && S_ISDIR(status.st_mode)) {
    file.reset();
  }
  return file;
}

}  // namespace platform

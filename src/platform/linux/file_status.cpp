#include "platform/file_status.h"

#include "platform/linux/status_of.h"

namespace platform {
namespace {

std::uint64_t Nanoseconds(const timespec& time) {
  return static_cast<std::uint64_t>(time.tv_sec) * 1'000'000'000 +
         static_cast<std::uint64_t>(time.tv_nsec);
}

}  // namespace

FileStatus StatusOf(const struct stat& found) {
  FileStatus status;
  status.kind = S_ISREG(found.st_mode)   ? FileKind::kFile
                : S_ISDIR(found.st_mode) ? FileKind::kFolder
                                         : FileKind::kOther;
  status.size = static_cast<std::uint64_t>(found.st_size);
  status.identity = {found.st_dev, found.st_ino};
  status.changed = Nanoseconds(found.st_mtim);
  status.touched = Nanoseconds(found.st_ctim);
  return status;
}

FileStatus QueryStatus(const std::filesystem::path& path) {
  struct stat found = {};
  return stat(path.c_str(), &found) == 0 ? StatusOf(found) : FileStatus();
}

std::uint64_t QueryTouched(const std::filesystem::path& path) {
  return QueryStatus(path).touched;
}

}  // namespace platform

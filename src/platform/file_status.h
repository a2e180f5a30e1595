// What is at a path.
#pragma once

#include <cstdint>
#include <filesystem>
#include <utility>

namespace platform {

enum class FileKind { kMissing, kFile, kFolder, kOther };

struct FileStatus {
  FileKind kind = FileKind::kMissing;
  // In bytes.
  std::uint64_t size = 0;
  // The same for two paths exactly when they lead to one file.
  std::pair<std::uint64_t, std::uint64_t> identity;
  // When the content was last changed, in a unit of the system's own.
  std::uint64_t changed = 0;
  // What QueryTouched says, where programs make links of their own to the files they read and not
  // further names for them, which count as a change. Else 0.
  std::uint64_t touched = 0;

  bool operator==(const FileStatus&) const = default;
};

// What is at `path`, links followed. A path that leads nowhere or may not be looked at is missing.
FileStatus QueryStatus(const std::filesystem::path& path);

// When anything of the file at `path`, its names and attributes included, was last changed, in a
// unit of the system's own: content and times cannot be put back so that this stays. 0 when it is
// missing or the system does not note that.
std::uint64_t QueryTouched(const std::filesystem::path& path);

}  // namespace platform

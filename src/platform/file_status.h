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
  // When anything of it was last changed, where the system notes that and a new name for the file
  // does not count: content and time cannot be put back so that this stays. Else 0.
  std::uint64_t touched = 0;

  bool operator==(const FileStatus&) const = default;
};

// What is at `path`, links followed. A path that leads nowhere or may not be looked at is missing.
FileStatus QueryStatus(const std::filesystem::path& path);

}  // namespace platform

// Single files: copying, removal, status, and opening.
#pragma once

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

namespace platform {

// Copies a file, replacing an existing one at `to`. Returns whether it was copied; copying a file
// onto itself fails.
bool CopyFileReplacing(const std::string& from, const std::string& to);

// Removes one file, never a folder. Returns whether it is gone because of this call.
bool RemoveFile(const std::string& path);

// The attribute word of a folder that carries no further attribute.
inline constexpr std::uint32_t kFolderAttribute = 0x10;

// The attribute word of a file or folder, or nothing when the system has no status for the path.
// Outside Windows it is kFolderAttribute alone for a folder that can be written to.
std::optional<std::uint32_t> QueryAttributes(const std::string& path);

// Opens `stream` on `path` for appended text, creating the file when it is missing; others may
// read and write the file meanwhile. A failure leaves the stream closed and marked as failed.
void OpenForAppending(std::ofstream& stream, const std::string& path);

struct FileCloser {
  // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): this is the owner's hand.
  void operator()(std::FILE* file) const { std::fclose(file); }
};
// A C stream that is closed when its owner goes.
using OwnedFile = std::unique_ptr<std::FILE, FileCloser>;

// Opens a C stream on `path` with the mode that fopen takes. Returns null when there is no such
// file or it cannot be opened; a folder is no file.
OwnedFile OpenFile(const std::string& path, const char* mode);

}  // namespace platform

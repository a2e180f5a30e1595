// Single files as the console program handles them: narrow paths with backslashes, copies that
// replace, read-only files that stay, and failures without a reason, all as its contract has it.
// TessaraAnimate's own ways, which promise more, are in file_system.h.
#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>

#include "platform/owned.h"

namespace platform {

// Copies a file, replacing an existing one at `to`. Returns whether it was copied; copying a file
// onto itself fails. The copy of a read-only file is read-only too.
bool CopyFileReplacing(const std::string& from, const std::string& to);

// Removes one file, never a folder and never a read-only file: one with the read-only attribute or,
// outside Windows, without any write permission. Returns whether it is gone because of this call.
bool RemoveFile(const std::string& path);

// The attribute word of a folder that carries no further attribute.
inline constexpr std::uint32_t kFolderAttribute = 0x10;

// The attribute word of a file or folder, or nothing when the system has no status for the path.
// Outside Windows it is kFolderAttribute alone for a folder that can be written to.
std::optional<std::uint32_t> QueryAttributes(const std::string& path);

// Opens a C stream on `path` with the mode that fopen takes; others may read and write the file
// meanwhile. Returns null when there is no such file or it cannot be opened; a folder is no file.
OwnedFile OpenFile(const std::string& path, const char* mode);

}  // namespace platform

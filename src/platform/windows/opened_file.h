// Opening files by the system's own call, and what it says of them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>

#include "platform/file_status.h"
#include "platform/windows/owned_handle.h"

namespace platform {

// Opens the file `path`; others may do anything with it meanwhile. Null when that fails.
OwnedHandle OpenedFile(const std::filesystem::path& path, DWORD access, DWORD creation,
                       DWORD flags = 0);

// Of an open file or folder; missing for null.
FileStatus StatusOf(HANDLE file);

}  // namespace platform

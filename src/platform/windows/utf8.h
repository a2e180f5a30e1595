// Wide texts for the system, and UTF-8 for the rest of the program.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

#include "platform/owned.h"

namespace platform {

// A handle that is closed when its owner goes; null, and not INVALID_HANDLE_VALUE, when empty.
using OwnedHandle = Owned<HANDLE, CloseHandle>;

// Bytes that are no UTF-8, and parts that are no Unicode, become the replacement character.
std::wstring WideFromUtf8(const std::string& text);
std::string Utf8FromWide(const std::wstring& text);

// `path` as the system takes it without a limit of its length: from the root on and marked as such
// when it is long.
std::wstring SystemPath(const std::filesystem::path& path);

// The system's words for one of its error numbers, without a line end or a full stop.
std::string ErrorText(DWORD error);

}  // namespace platform

// Paths in any language and of any length, and the texts for them. On Windows paths are wide;
// elsewhere they are bytes, in which a backslash is a character like any other. (The console
// program forms narrow texts with backslashes in place of paths, as its contract has it.)
#pragma once

#include <filesystem>
#include <string>

namespace platform {

// The path that a text names, and the text to show for a path: UTF-8 on Windows, where parts that
// are no Unicode show as the replacement character; elsewhere the bytes themselves.
std::filesystem::path PathFromText(const std::string& text);
std::string TextOfPath(const std::filesystem::path& path);

// `path` from the root of its file system, without "." and a separator at its end. A ".." is what
// the system takes it for, so behind a link it is the folder above the link's target; where that
// leads nowhere it stays.
std::filesystem::path FullPath(const std::filesystem::path& path);

// `path` as an argument for another program that reads UTF-8 (elsewhere: bytes), in the form
// without a limit when it is long.
std::string ArgumentOfPath(const std::filesystem::path& path);

}  // namespace platform

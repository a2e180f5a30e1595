// Files and folders under paths in any language and of any length. On Windows paths are wide, and
// long ones are given to the system in the form that has no limit; elsewhere they are bytes, in
// which a backslash is a character like any other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"

namespace platform {

// The path that a text names, and the text to show for a path: UTF-8 on Windows, where parts that
// are no Unicode show as the replacement character; elsewhere the bytes themselves.
std::filesystem::path PathFromText(const std::string& text);
std::string TextOfPath(const std::filesystem::path& path);

// `path` from the root of its file system, without "." and ".." and a separator at its end.
std::filesystem::path FullPath(const std::filesystem::path& path);

// `path` as an argument for another program that reads UTF-8 (elsewhere: bytes), in the form
// without a limit when it is long.
std::string ArgumentOfPath(const std::filesystem::path& path);

enum class FileKind { kMissing, kFile, kFolder, kOther };

struct FileStatus {
  FileKind kind = FileKind::kMissing;
  // In bytes.
  std::uint64_t size = 0;
  // The same for two paths exactly when they lead to one file.
  std::pair<std::uint64_t, std::uint64_t> identity;
  // When the content was last changed, in a unit of the system's own.
  std::uint64_t changed = 0;

  bool operator==(const FileStatus&) const = default;
};

// What is at `path`, links followed. A path that leads nowhere or may not be looked at is missing.
FileStatus QueryStatus(const std::filesystem::path& path);

// The names of all files in `folder` (links to files too, folders not), in no particular order;
// nothing when it cannot be listed.
std::optional<std::vector<std::filesystem::path>> ListFiles(const std::filesystem::path& folder);

// Removes one file, never a folder. Returns whether it is gone because of this call.
bool DeleteOneFile(const std::filesystem::path& path);

// How many bytes this user can still write to the disk that `folder` is on; the largest number when
// the system does not say.
std::uint64_t FreeSpace(const std::filesystem::path& folder);

// Makes `to` a link to the file `from` (a symbolic one where every user may make them, a hard one
// elsewhere), or a copy when no link can be made there. Nothing may be at `to`. Returns what was
// made, nothing when neither could be.
enum class StandIn { kLink, kCopy };
std::optional<StandIn> LinkOrCopy(const std::filesystem::path& from,
                                  const std::filesystem::path& to);

// Makes `to` a copy of the file `from`, with rights of its own. Fails when something is at `to`.
bool CopyToNewFile(const std::filesystem::path& from, const std::filesystem::path& to);

// Creates the empty file `path`; fails when something is there. Returns the reason of a failure in
// the system's words, an empty text after success.
std::string CreateEmptyFile(const std::filesystem::path& path);

// Opens the file `path`, which is there, as a C stream for new content; null when it cannot be
// opened.
OwnedFile OpenForNewContent(const std::filesystem::path& path);

// Gives the file `from` the name `to` in the same folder. Fails when something is there.
bool RenameWithoutReplacing(const std::filesystem::path& from, const std::filesystem::path& to);

// Puts the finished file `from` in the place of `to`, in the same folder, in one step that no
// power cut and no other program sees half done: its content is on the disk before. With `replace`
// an existing file goes; without it such a file stays and the call fails. Returns the reason of a
// failure in the system's words, an empty text after success.
std::string PutInPlace(const std::filesystem::path& from, const std::filesystem::path& to,
                       bool replace);

// A file that is read at any place.
class InputFile {
 public:
  // Opens the file; one that cannot be read is not open.
  explicit InputFile(const std::filesystem::path& path);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  bool IsOpen() const;

  // As it was when the file was opened; missing when the file is not open.
  const FileStatus& Status() const { return status_; }

  // In bytes, then; 0 when the file is not open.
  std::uint64_t Size() const { return status_.size; }

  // Reads up to `count` bytes from `offset` on; fewer only at the end of the file or of what can be
  // read.
  std::string Read(std::uint64_t offset, std::size_t count) const;

 private:
  // The system's own handle, -1 for none.
  std::intptr_t handle_ = -1;
  FileStatus status_;
};

// A new folder under the system's temporary one that its owner alone can enter. It goes, with the
// files in it, when its owner goes.
class PrivateFolder {
 public:
  // Makes the folder; Path() is empty when that failed.
  PrivateFolder();
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// The folder of the running program; the path of an environment variable, empty when it is not set;
// the folders in which the system looks for programs.
std::filesystem::path ProgramFolder();
std::filesystem::path PathVariable(const char* name);
std::vector<std::filesystem::path> ProgramSearchFolders();

}  // namespace platform

// Listing folders, and making, moving and removing files, for TessaraAnimate: under paths in any
// language and of any length (on Windows long ones are given to the system in the form that has no
// limit), nothing replaced unless that is asked for, and every failure with its reason. The console
// program's own ways with files, which replace and keep silent by contract, are in files.h.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "platform/file_status.h"
#include "platform/owned.h"
#include "platform/result.h"

namespace platform {

// What is in a folder; of a link it is what it leads to.
struct FolderEntry {
  std::filesystem::path name;
  FileKind kind = FileKind::kMissing;
};

// All entries of `folder` but itself and the one above it, in no particular order.
Result<std::vector<FolderEntry>> ListEntries(const std::filesystem::path& folder);

// Removes one file, never a folder.
Result<Done> DeleteOneFile(const std::filesystem::path& path);

// How many bytes this user can still write to the disk that `folder` is on; the largest number when
// the system does not say.
std::uint64_t FreeSpace(const std::filesystem::path& folder);

// Makes `to` a link to the file `from` (a symbolic one where every user may make them, a hard one
// elsewhere), or a copy with rights of its own when no link can be made there. Nothing may be at
// `to`. Returns what was made.
enum class StandIn { kLink, kCopy };
Result<StandIn> LinkOrCopy(const std::filesystem::path& from, const std::filesystem::path& to);

// Creates the empty file `path`; fails when something is there.
Result<Done> CreateEmptyFile(const std::filesystem::path& path);

// Opens the file `path`, which is there, as a C stream for new content.
Result<OwnedFile> OpenForNewContent(const std::filesystem::path& path);

// Where a file that is to be put at `path` comes to lie: there, or, when a link is there, where
// that leads. Fails when it leads nowhere, when the system can have no file of that name, and when
// the file that is there is read-only: outside Windows one that this user may not write to or that
// has no write permission at all.
Result<std::filesystem::path> PlaceFor(const std::filesystem::path& path);

// Gives the file `from` the name `to` in the same folder. Fails when something is there. Where the
// system cannot do that in one step an empty file is there for a moment before.
Result<Done> RenameWithoutReplacing(const std::filesystem::path& from,
                                    const std::filesystem::path& to);

// Puts the finished file `from` in the place of `to`, in the same folder, in one step that no
// power cut and no other program sees half done: its content is on the disk before. With `replace`
// an existing file goes; without it such a file stays and the call fails.
Result<Done> PutInPlace(const std::filesystem::path& from, const std::filesystem::path& to,
                        bool replace);

}  // namespace platform

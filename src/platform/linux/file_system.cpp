#include "platform/file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <limits>
#include <string>
#include <system_error>

#include "platform/input_file.h"
#include "platform/linux/descriptor.h"
#include "platform/linux/last_error.h"
#include "platform/linux/status_of.h"

namespace platform {
namespace fs = std::filesystem;
namespace {

constexpr mode_t kNewFileRights = 0666;

Result<Done> DoneIf(bool isDone) {
  return isDone ? Result<Done>(Done()) : LastError();
}

bool Flush(const fs::path& path, int flags) {
  Descriptor file(open(path.c_str(), flags | O_CLOEXEC));
  return file.IsOpen() && fsync(file.Get()) == 0 && file.Close();
}

bool WriteAll(int file, const std::string& data) {
  std::size_t written = 0;
  while (written < data.size()) {
    const ssize_t count = write(file, data.data() + written, data.size() - written);
    if (count < 0 && errno != EINTR) {
      return false;
    }
    written += count > 0 ? static_cast<std::size_t>(count) : 0;
  }
  return true;
}

Result<StandIn> Copy(const fs::path& from, const fs::path& to) {
  constexpr std::size_t kPiece = 1 << 20;
  const Result<InputFile> source = InputFile::Open(from);
  if (!source) {
    return SystemError{source.Reason()};
  }
  Descriptor copy(open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileRights));
  if (!copy.IsOpen()) {
    return LastError();
  }
  std::uint64_t done = 0;
  errno = 0;
  bool good = true;
  while (good && done < source->Size()) {
    const std::string piece = source->Read(done, kPiece);
    good = !piece.empty() && WriteAll(copy.Get(), piece);
    done += piece.size();
  }
  if (good && copy.Close()) {
    return StandIn::kCopy;
  }
  SystemError error = LastError();
  unlink(to.c_str());
  return error;
}

// Renames onto an empty file of its own making, which nothing that is there can be.
Result<Done> RenameOntoOwn(const fs::path& from, const fs::path& to) {
  const Descriptor own(open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileRights));
  struct stat made = {};
  if (!own.IsOpen() || fstat(own.Get(), &made) != 0) {
    return LastError();
  }
  if (QueryStatus(to).identity != StatusOf(made).identity) {
    return ErrorOf(EEXIST);
  }
  if (rename(from.c_str(), to.c_str()) == 0) {
    return Done();
  }
  SystemError error = LastError();
  unlink(to.c_str());
  return error;
}

}  // namespace

Result<std::vector<FolderEntry>> ListEntries(const fs::path& folder) {
  const Owned<DIR*, closedir> open(opendir(folder.c_str()));
  if (!open) {
    return LastError();
  }
  std::vector<FolderEntry> entries;
  errno = 0;
  while (const dirent* entry = readdir(open.get())) {
    const fs::path name = &entry->d_name[0];
    if (name != "." && name != "..") {
      entries.push_back({name, entry->d_type == DT_REG   ? FileKind::kFile
                               : entry->d_type == DT_DIR ? FileKind::kFolder
                                                         : QueryStatus(folder / name).kind});
    }
    errno = 0;
  }
  if (errno != 0) {
    return LastError();
  }
  return entries;
}

Result<Done> DeleteOneFile(const fs::path& path) {
  return DoneIf(unlink(path.c_str()) == 0);
}

std::uint64_t FreeSpace(const fs::path& folder) {
  struct statvfs disk = {};
  if (statvfs(folder.c_str(), &disk) != 0) {
    return std::numeric_limits<std::uint64_t>::max();
  }
  return static_cast<std::uint64_t>(disk.f_bavail) * disk.f_frsize;
}

Result<StandIn> LinkOrCopy(const fs::path& from, const fs::path& to) {
  if (symlink(from.c_str(), to.c_str()) == 0) {
    return StandIn::kLink;
  }
  return Copy(from, to);
}

Result<Done> CreateEmptyFile(const fs::path& path) {
  const Descriptor file(
      open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileRights));
  return DoneIf(file.IsOpen());
}

Result<OwnedFile> OpenForNewContent(const fs::path& path) {
  OwnedFile file(std::fopen(path.c_str(), "wbe"));
  if (!file) {
    return LastError();
  }
  return file;
}

Result<fs::path> PlaceFor(const fs::path& path) {
  struct stat found = {};
  if (lstat(path.c_str(), &found) != 0) {
    return errno == ENOENT ? Result<fs::path>(path) : LastError();
  }
  std::error_code error;
  fs::path place = S_ISLNK(found.st_mode) ? fs::canonical(path, error) : path;
  if (error || stat(place.c_str(), &found) != 0) {
    return SystemError{"it is a link that leads nowhere"};
  }
  // The superuser is granted every access.
  if ((found.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 ||
      faccessat(AT_FDCWD, place.c_str(), W_OK, AT_EACCESS) != 0) {
    return SystemError{"it is read-only"};
  }
  return place;
}

Result<Done> RenameWithoutReplacing(const fs::path& from, const fs::path& to) {
  if (syscall(SYS_renameat2, AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
    return Done();
  }
  // Systems and file systems refuse what they do not know in several words. A hard link fails as
  // well when something is there.
  if (errno != EEXIST && link(from.c_str(), to.c_str()) == 0) {
    unlink(from.c_str());
    return Done();
  }
  return errno == EEXIST ? LastError() : RenameOntoOwn(from, to);
}

Result<Done> PutInPlace(const fs::path& from, const fs::path& to, bool replace) {
  if (!Flush(from, O_RDWR)) {
    return LastError();
  }
  Result<Done> moved =
      replace ? DoneIf(rename(from.c_str(), to.c_str()) == 0) : RenameWithoutReplacing(from, to);
  if (moved) {
    // The new name is safe too after this; a file system that cannot do it has done all it can.
    Flush(to.parent_path(), O_RDONLY | O_DIRECTORY);
  }
  return moved;
}

}  // namespace platform

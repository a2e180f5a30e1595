#include "platform/file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <system_error>

namespace platform {
namespace fs = std::filesystem;
namespace {

constexpr mode_t kNewFileRights = 0666;

// A file descriptor that is closed when its owner goes.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) {
      close(number_);
    }
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Get() const { return number_; }

  // Closes it now, and says whether that went well: some file systems report lost data only then.
  bool Close() {
    const int number = number_;
    number_ = -1;
    return close(number) == 0;
  }

 private:
  int number_;
};

bool Flush(const fs::path& path, int flags) {
  Descriptor file(open(path.c_str(), flags | O_CLOEXEC));
  return file.Get() >= 0 && fsync(file.Get()) == 0 && file.Close();
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

FileStatus StatusOf(const struct stat& found) {
  FileStatus status;
  status.kind = S_ISREG(found.st_mode)   ? FileKind::kFile
                : S_ISDIR(found.st_mode) ? FileKind::kFolder
                                         : FileKind::kOther;
  status.size = static_cast<std::uint64_t>(found.st_size);
  status.identity = {found.st_dev, found.st_ino};
  status.changed = static_cast<std::uint64_t>(found.st_mtim.tv_sec) * 1'000'000'000 +
                   static_cast<std::uint64_t>(found.st_mtim.tv_nsec);
  return status;
}

}  // namespace

fs::path PathFromText(const std::string& text) {
  return text;
}

std::string TextOfPath(const fs::path& path) {
  return path.native();
}

fs::path FullPath(const fs::path& path) {
  std::error_code error;
  fs::path full = fs::absolute(path, error).lexically_normal();
  return full.has_filename() || !full.has_relative_path() ? full : full.parent_path();
}

std::string ArgumentOfPath(const fs::path& path) {
  return path.native();
}

FileStatus QueryStatus(const fs::path& path) {
  struct stat found = {};
  return stat(path.c_str(), &found) == 0 ? StatusOf(found) : FileStatus();
}

std::optional<std::vector<fs::path>> ListFiles(const fs::path& folder) {
  const Owned<DIR*, closedir> open(opendir(folder.c_str()));
  if (!open) {
    return std::nullopt;
  }
  std::vector<fs::path> names;
  errno = 0;
  while (const dirent* entry = readdir(open.get())) {
    const fs::path name = &entry->d_name[0];
    if (entry->d_type == DT_REG ||
        (entry->d_type != DT_DIR && QueryStatus(folder / name).kind == FileKind::kFile)) {
      names.push_back(name);
    }
    errno = 0;
  }
  if (errno != 0) {
    return std::nullopt;
  }
  return names;
}

bool DeleteOneFile(const fs::path& path) {
  return unlink(path.c_str()) == 0;
}

std::uint64_t FreeSpace(const fs::path& folder) {
  struct statvfs disk = {};
  if (statvfs(folder.c_str(), &disk) != 0) {
    return std::numeric_limits<std::uint64_t>::max();
  }
  return static_cast<std::uint64_t>(disk.f_bavail) * disk.f_frsize;
}

std::optional<StandIn> LinkOrCopy(const fs::path& from, const fs::path& to) {
  if (symlink(from.c_str(), to.c_str()) == 0) {
    return StandIn::kLink;
  }
  if (CopyToNewFile(from, to)) {
    return StandIn::kCopy;
  }
  return std::nullopt;
}

bool CopyToNewFile(const fs::path& from, const fs::path& to) {
  constexpr std::size_t kPiece = 1 << 20;
  const InputFile source(from);
  if (!source.IsOpen()) {
    return false;
  }
  Descriptor copy(open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileRights));
  if (copy.Get() < 0) {
    return false;
  }
  std::uint64_t done = 0;
  bool good = true;
  while (good && done < source.Size()) {
    const std::string piece = source.Read(done, kPiece);
    good = !piece.empty() && WriteAll(copy.Get(), piece);
    done += piece.size();
  }
  if (copy.Close() && good) {
    return true;
  }
  unlink(to.c_str());
  return false;
}

std::string CreateEmptyFile(const fs::path& path) {
  const Descriptor file(
      open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileRights));
  return file.Get() >= 0 ? "" : std::strerror(errno);
}

OwnedFile OpenForNewContent(const fs::path& path) {
  return OwnedFile(std::fopen(path.c_str(), "wb"));
}

bool RenameWithoutReplacing(const fs::path& from, const fs::path& to) {
  if (syscall(SYS_renameat2, AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
    return true;
  }
  if (errno != EINVAL && errno != ENOSYS) {
    return false;
  }
  // A file system that knows no such call: a hard link fails as well when something is there.
  if (link(from.c_str(), to.c_str()) != 0) {
    return false;
  }
  unlink(from.c_str());
  return true;
}

std::string PutInPlace(const fs::path& from, const fs::path& to, bool replace) {
  const bool moved = Flush(from, O_RDWR) && (replace ? rename(from.c_str(), to.c_str()) == 0
                                                     : RenameWithoutReplacing(from, to));
  if (!moved) {
    return std::strerror(errno);
  }
  // The new name is safe too after this; a file system that cannot do it has done all it can.
  Flush(to.parent_path(), O_RDONLY | O_DIRECTORY);
  return "";
}

InputFile::InputFile(const fs::path& path) : handle_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  struct stat found = {};
  if (fstat(static_cast<int>(handle_), &found) == 0) {
    status_ = StatusOf(found);
  }
}

InputFile::~InputFile() {
  if (IsOpen()) {
    close(static_cast<int>(handle_));
  }
}

bool InputFile::IsOpen() const {
  return handle_ >= 0;
}

std::string InputFile::Read(std::uint64_t offset, std::size_t count) const {
  std::string data(count, '\0');
  std::size_t done = 0;
  while (done < count) {
    const ssize_t got = pread(static_cast<int>(handle_), data.data() + done, count - done,
                              static_cast<off_t>(offset + done));
    if (got <= 0 && !(got < 0 && errno == EINTR)) {
      break;
    }
    done += got > 0 ? static_cast<std::size_t>(got) : 0;
  }
  data.resize(done);
  return data;
}

PrivateFolder::PrivateFolder() {
  const char* set = std::getenv("TMPDIR");
  std::string name =
      std::string(set != nullptr && *set != '\0' ? set : "/tmp") + "/TessaraAnimate-XXXXXX";
  if (mkdtemp(name.data()) != nullptr) {
    path_ = FullPath(name);
  }
}

PrivateFolder::~PrivateFolder() {
  std::error_code ignored;
  if (!path_.empty()) {
    fs::remove_all(path_, ignored);
  }
}

fs::path ProgramFolder() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error).parent_path();
}

fs::path PathVariable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::vector<fs::path> ProgramSearchFolders() {
  std::vector<fs::path> folders;
  const std::string all = PathVariable("PATH").native();
  for (std::size_t at = 0; at <= all.size();) {
    const std::size_t end = std::min(all.find(':', at), all.size());
    folders.emplace_back(all.substr(at, end - at));
    at = end + 1;
  }
  return folders;
}

}  // namespace platform

#include "platform/file_system.h"

#include <windows.h>

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>

#include "platform/windows/filled_text.h"
#include "platform/windows/last_error.h"
#include "platform/windows/opened_file.h"
#include "platform/windows/system_path.h"

namespace platform {
namespace fs = std::filesystem;
namespace {

// In units, on every file system; what is longer can look like a name that is free.
constexpr std::size_t kLongestName = 255;

Result<Done> DoneIf(bool isDone) {
  return isDone ? Result<Done>(Done()) : LastError();
}

// The path of the file that opening `path` opens, links followed; empty when the system has none
// for it, as for some disks.
fs::path TargetOf(const fs::path& path) {
  const OwnedHandle file = OpenedFile(path, 0, OPEN_EXISTING);
  const auto target = FilledText<wchar_t>([&](wchar_t* text, DWORD size) {
    return GetFinalPathNameByHandleW(file.get(), text, size, 0);
  });
  // It is marked as one without a limit of its length.
  const std::wstring share = LR"(\\?\UNC\)";
  const std::size_t mark = 4;
  return target.rfind(share, 0) == 0 ? LR"(\\)" + target.substr(share.size())
                                     : target.substr(std::min(mark, target.size()));
}

}  // namespace

Result<std::vector<FolderEntry>> ListEntries(const fs::path& folder) {
  WIN32_FIND_DATAW entry = {};
  HANDLE found = FindFirstFileW(SystemPath(folder / L"*").c_str(), &entry);
  if (found == INVALID_HANDLE_VALUE) {
    return LastError();
  }
  const Owned<HANDLE, FindClose> search(found);
  std::vector<FolderEntry> entries;
  do {
    const fs::path name = &entry.cFileName[0];
    if (name != L"." && name != L"..") {
      const bool isLink = (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
      const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
      entries.push_back({name, isLink     ? QueryStatus(folder / name).kind
                               : isFolder ? FileKind::kFolder
                                          : FileKind::kFile});
    }
  } while (FindNextFileW(search.get(), &entry) != 0);
  if (GetLastError() != ERROR_NO_MORE_FILES) {
    return LastError();
  }
  return entries;
}

Result<Done> DeleteOneFile(const fs::path& path) {
  return DoneIf(DeleteFileW(SystemPath(path).c_str()) != 0);
}

std::uint64_t FreeSpace(const fs::path& folder) {
  ULARGE_INTEGER free = {};
  if (GetDiskFreeSpaceExW(SystemPath(folder).c_str(), &free, nullptr, nullptr) == 0) {
    return std::numeric_limits<std::uint64_t>::max();
  }
  return free.QuadPart;
}

Result<StandIn> LinkOrCopy(const fs::path& from, const fs::path& to) {
  const std::wstring source = SystemPath(from);
  const std::wstring target = SystemPath(to);
  // A link has the attributes of its file, and one that is read-only could not be removed again.
  const bool isReadOnly = (GetFileAttributesW(source.c_str()) & FILE_ATTRIBUTE_READONLY) != 0;
  if (!isReadOnly && CreateHardLinkW(target.c_str(), source.c_str(), nullptr) != 0) {
    return StandIn::kLink;
  }
  if (CopyFileW(source.c_str(), target.c_str(), TRUE) == 0) {
    return LastError();
  }
  // A read-only frame must not give a copy that cannot be removed.
  SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
  return StandIn::kCopy;
}

Result<Done> CreateEmptyFile(const fs::path& path) {
  return DoneIf(OpenedFile(path, GENERIC_WRITE, CREATE_NEW) != nullptr);
}

Result<OwnedFile> OpenForNewContent(const fs::path& path) {
  OwnedFile file(_wfopen(SystemPath(path).c_str(), L"wbN"));
  if (!file) {
    return LastError();
  }
  return file;
}

Result<fs::path> PlaceFor(const fs::path& path) {
  // Some of these would be refused late, and a colon means a further stream of another file.
  const std::wstring name = path.filename().native();
  if (std::any_of(name.begin(), name.end(), [](wchar_t unit) {
        return unit < L' ' || std::wstring_view(L"<>:\"/\\|?*").find(unit) != std::wstring::npos;
      })) {
    return ErrorOf(ERROR_INVALID_NAME);
  }
  if (name.size() > kLongestName) {
    return ErrorOf(ERROR_FILENAME_EXCED_RANGE);
  }
  DWORD attributes = GetFileAttributesW(SystemPath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return GetLastError() == ERROR_FILE_NOT_FOUND ? Result<fs::path>(path) : LastError();
  }
  fs::path place = path;
  const fs::path target = TargetOf(path);
  const DWORD targetAttributes = GetFileAttributesW(SystemPath(target).c_str());
  if (targetAttributes != INVALID_FILE_ATTRIBUTES) {
    place = target;
    attributes = targetAttributes;
  } else if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    return SystemError{"it is a link that leads nowhere"};
  }
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    return SystemError{"it is read-only"};
  }
  return place;
}

Result<Done> RenameWithoutReplacing(const fs::path& from, const fs::path& to) {
  return DoneIf(MoveFileExW(SystemPath(from).c_str(), SystemPath(to).c_str(), 0) != 0);
}

Result<Done> PutInPlace(const fs::path& from, const fs::path& to, bool replace) {
  {
    const OwnedHandle file = OpenedFile(from, GENERIC_WRITE, OPEN_EXISTING);
    if (!file || FlushFileBuffers(file.get()) == 0) {
      return LastError();
    }
  }
  const DWORD flags = MOVEFILE_WRITE_THROUGH | (replace ? MOVEFILE_REPLACE_EXISTING : 0);
  return DoneIf(MoveFileExW(SystemPath(from).c_str(), SystemPath(to).c_str(), flags) != 0);
}

}  // namespace platform

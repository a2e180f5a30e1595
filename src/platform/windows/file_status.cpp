#include "platform/file_status.h"

#include "platform/windows/opened_file.h"
#include "platform/windows/system_path.h"

namespace platform {
namespace {

std::uint64_t Joined(DWORD high, DWORD low) {
  return static_cast<std::uint64_t>(high) << 32 | low;
}

}  // namespace

OwnedHandle OpenedFile(const std::filesystem::path& path, DWORD access, DWORD creation,
                       DWORD flags) {
  HANDLE handle = CreateFileW(SystemPath(path).c_str(), access,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              creation, FILE_ATTRIBUTE_NORMAL | flags, nullptr);
  return OwnedHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

FileStatus StatusOf(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION found = {};
  if (file == nullptr || GetFileInformationByHandle(file, &found) == 0) {
    return {};
  }
  FileStatus status;
  const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  // Of what is neither file nor folder the system knows no such information.
  status.kind = isFolder ? FileKind::kFolder : FileKind::kFile;
  status.size = Joined(found.nFileSizeHigh, found.nFileSizeLow);
  status.identity = {found.dwVolumeSerialNumber, Joined(found.nFileIndexHigh, found.nFileIndexLow)};
  status.changed =
      Joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime);
  return status;
}

FileStatus QueryStatus(const std::filesystem::path& path) {
  // The flag lets folders be opened too.
  return StatusOf(OpenedFile(path, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS).get());
}

std::uint64_t QueryTouched(const std::filesystem::path& path) {
  const OwnedHandle file = OpenedFile(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING);
  FILE_BASIC_INFO found = {};
  return file && GetFileInformationByHandleEx(file.get(), FileBasicInfo, &found, sizeof(found)) != 0
             ? static_cast<std::uint64_t>(found.ChangeTime.QuadPart)
             : 0;
}

}  // namespace platform

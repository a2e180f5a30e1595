#include "platform/file_system.h"

#include <windows.h>
// sddl.h builds on windows.h.
#include <sddl.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <limits>
#include <random>

#include "platform/windows/utf8.h"

namespace platform {
namespace fs = std::filesystem;
namespace {

// A system's handle, or null for each of the two values that stand for none.
OwnedHandle OpenedFile(const fs::path& path, DWORD access, DWORD creation, DWORD flags = 0) {
  HANDLE handle = CreateFileW(SystemPath(path).c_str(), access,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              creation, FILE_ATTRIBUTE_NORMAL | flags, nullptr);
  return OwnedHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

std::uint64_t Joined(DWORD high, DWORD low) {
  return static_cast<std::uint64_t>(high) << 32 | low;
}

template <typename Fill>
std::wstring FilledText(const Fill& fill) {
  std::wstring text(1024, L'\0');
  DWORD length = fill(text.data(), static_cast<DWORD>(text.size()));
  if (length >= text.size()) {
    text.resize(length + 1);
    length = fill(text.data(), static_cast<DWORD>(text.size()));
  }
  text.resize(length);
  return text;
}

// The identifier of the process's user as text; empty when the system does not say.
std::wstring OwnUser() {
  HANDLE token = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == 0) {
    return {};
  }
  const OwnedHandle owner(token);
  alignas(TOKEN_USER) std::array<std::byte, 256> buffer = {};
  DWORD size = 0;
  wchar_t* text = nullptr;
  if (GetTokenInformation(token, TokenUser, buffer.data(), static_cast<DWORD>(buffer.size()),
                          &size) == 0 ||
      ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(buffer.data())->User.Sid, &text) == 0) {
    return {};
  }
  const Owned<wchar_t*, LocalFree> identifier(text);
  return text;
}

// Full rights for this user, for nobody else, and so on for what is made inside.
bool MakeOwnersFolder(const fs::path& path) {
  const std::wstring rights = L"D:P(A;OICI;FA;;;" + OwnUser() + L")";
  void* descriptor = nullptr;
  if (ConvertStringSecurityDescriptorToSecurityDescriptorW(rights.c_str(), SDDL_REVISION_1,
                                                           &descriptor, nullptr) == 0) {
    return false;
  }
  const Owned<void*, LocalFree> owner(descriptor);
  SECURITY_ATTRIBUTES attributes = {sizeof(attributes), descriptor, FALSE};
  return CreateDirectoryW(path.c_str(), &attributes) != 0;
}

FileStatus StatusOf(const OwnedHandle& file) {
  BY_HANDLE_FILE_INFORMATION found = {};
  if (!file || GetFileInformationByHandle(file.get(), &found) == 0) {
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

}  // namespace

fs::path PathFromText(const std::string& text) {
  return WideFromUtf8(text);
}

std::string TextOfPath(const fs::path& path) {
  return Utf8FromWide(path.native());
}

fs::path FullPath(const fs::path& path) {
  fs::path full = FilledText([&](wchar_t* text, DWORD size) {
    return GetFullPathNameW(path.c_str(), size, text, nullptr);
  });
  return full.has_filename() || !full.has_relative_path() ? full : full.parent_path();
}

std::string ArgumentOfPath(const fs::path& path) {
  return Utf8FromWide(SystemPath(path));
}

FileStatus QueryStatus(const fs::path& path) {
  // The flag lets folders be opened too.
  return StatusOf(OpenedFile(path, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
}

std::optional<std::vector<fs::path>> ListFiles(const fs::path& folder) {
  WIN32_FIND_DATAW entry = {};
  HANDLE found = FindFirstFileW(SystemPath(folder / L"*").c_str(), &entry);
  if (found == INVALID_HANDLE_VALUE) {
    return std::nullopt;
  }
  const Owned<HANDLE, FindClose> search(found);
  std::vector<fs::path> names;
  do {
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
      names.emplace_back(&entry.cFileName[0]);
    }
  } while (FindNextFileW(search.get(), &entry) != 0);
  if (GetLastError() != ERROR_NO_MORE_FILES) {
    return std::nullopt;
  }
  return names;
}

bool DeleteOneFile(const fs::path& path) {
  return DeleteFileW(SystemPath(path).c_str()) != 0;
}

std::uint64_t FreeSpace(const fs::path& folder) {
  ULARGE_INTEGER free = {};
  if (GetDiskFreeSpaceExW(SystemPath(folder).c_str(), &free, nullptr, nullptr) == 0) {
    return std::numeric_limits<std::uint64_t>::max();
  }
  return free.QuadPart;
}

std::optional<StandIn> LinkOrCopy(const fs::path& from, const fs::path& to) {
  // A link has the attributes of its file, and one that is read-only could not be removed again.
  const bool isReadOnly =
      (GetFileAttributesW(SystemPath(from).c_str()) & FILE_ATTRIBUTE_READONLY) != 0;
  if (!isReadOnly &&
      CreateHardLinkW(SystemPath(to).c_str(), SystemPath(from).c_str(), nullptr) != 0) {
    return StandIn::kLink;
  }
  if (CopyToNewFile(from, to)) {
    return StandIn::kCopy;
  }
  return std::nullopt;
}

bool CopyToNewFile(const fs::path& from, const fs::path& to) {
  if (CopyFileW(SystemPath(from).c_str(), SystemPath(to).c_str(), TRUE) == 0) {
    return false;
  }
  // A read-only frame must not give a copy that cannot be removed.
  SetFileAttributesW(SystemPath(to).c_str(), FILE_ATTRIBUTE_NORMAL);
  return true;
}

std::string CreateEmptyFile(const fs::path& path) {
  return OpenedFile(path, GENERIC_WRITE, CREATE_NEW) ? "" : ErrorText(GetLastError());
}

OwnedFile OpenForNewContent(const fs::path& path) {
  return OwnedFile(_wfopen(SystemPath(path).c_str(), L"wb"));
}

bool RenameWithoutReplacing(const fs::path& from, const fs::path& to) {
  return MoveFileExW(SystemPath(from).c_str(), SystemPath(to).c_str(), 0) != 0;
}

std::string PutInPlace(const fs::path& from, const fs::path& to, bool replace) {
  {
    const OwnedHandle file = OpenedFile(from, GENERIC_WRITE, OPEN_EXISTING);
    if (!file || FlushFileBuffers(file.get()) == 0) {
      return ErrorText(GetLastError());
    }
  }
  const DWORD flags = MOVEFILE_WRITE_THROUGH | (replace ? MOVEFILE_REPLACE_EXISTING : 0);
  return MoveFileExW(SystemPath(from).c_str(), SystemPath(to).c_str(), flags) != 0
             ? ""
             : ErrorText(GetLastError());
}

InputFile::InputFile(const fs::path& path) {
  OwnedHandle file = OpenedFile(path, GENERIC_READ, OPEN_EXISTING);
  if (file) {
    status_ = StatusOf(file);
    handle_ = reinterpret_cast<std::intptr_t>(file.release());
  }
}

InputFile::~InputFile() {
  if (IsOpen()) {
    CloseHandle(std::bit_cast<HANDLE>(handle_));
  }
}

bool InputFile::IsOpen() const {
  return handle_ != -1;
}

std::string InputFile::Read(std::uint64_t offset, std::size_t count) const {
  std::string data(count, '\0');
  OVERLAPPED place = {};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  DWORD got = 0;
  if (!IsOpen() || ReadFile(std::bit_cast<HANDLE>(handle_), data.data(), static_cast<DWORD>(count),
                            &got, &place) == 0) {
    got = 0;
  }
  data.resize(got);
  return data;
}

PrivateFolder::PrivateFolder() {
  const fs::path parent =
      FilledText([](wchar_t* text, DWORD size) { return GetTempPathW(size, text); });
  std::random_device random;
  constexpr int kTries = 100;
  for (int attempt = 0; attempt < kTries && path_.empty(); ++attempt) {
    const fs::path path = parent / ("TessaraAnimate-" + std::to_string(random()));
    if (MakeOwnersFolder(path)) {
      path_ = path;
    } else if (GetLastError() != ERROR_ALREADY_EXISTS) {
      return;
    }
  }
}

PrivateFolder::~PrivateFolder() {
  if (path_.empty()) {
    return;
  }
  for (const fs::path& name : ListFiles(path_).value_or(std::vector<fs::path>())) {
    DeleteFileW((path_ / name).c_str());
  }
  RemoveDirectoryW(path_.c_str());
}

fs::path ProgramFolder() {
  return fs::path(FilledText([](wchar_t* text, DWORD size) {
           return GetModuleFileNameW(nullptr, text, size);
         }))
      .parent_path();
}

fs::path PathVariable(const char* name) {
  const std::wstring wide = WideFromUtf8(name);
  return FilledText(
      [&](wchar_t* text, DWORD size) { return GetEnvironmentVariableW(wide.c_str(), text, size); });
}

std::vector<fs::path> ProgramSearchFolders() {
  std::vector<fs::path> folders;
  const std::wstring all = PathVariable("PATH").native();
  for (std::size_t at = 0; at <= all.size();) {
    const std::size_t end = std::min(all.find(L';', at), all.size());
    folders.emplace_back(all.substr(at, end - at));
    at = end + 1;
  }
  return folders;
}

}  // namespace platform

#include "platform/private_folder.h"

#include <windows.h>
// sddl.h builds on windows.h.
#include <sddl.h>

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <utility>

#include "platform/file_system.h"
#include "platform/paths.h"
#include "platform/program_search.h"
#include "platform/windows/filled_text.h"
#include "platform/windows/last_error.h"
#include "platform/windows/owned_handle.h"

namespace platform {
namespace fs = std::filesystem;
namespace {

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

}  // namespace

TemporaryPlace FindTemporaryPlace() {
  TemporaryPlace place;
  place.folder = FullPath(
      FilledText<wchar_t>([](wchar_t* text, DWORD size) { return GetTempPathW(size, text); }));
  // The system takes the first that is set, and else its own folder.
  for (const char* variable : {"TMP", "TEMP", "USERPROFILE"}) {
    if (place.variable.empty() && !PathVariable(variable).empty()) {
      place.variable = variable;
    }
  }
  return place;
}

Result<PrivateFolder> PrivateFolder::Make() {
  const fs::path parent = FindTemporaryPlace().folder;
  std::random_device random;
  constexpr int kTries = 100;
  for (int attempt = 0; attempt < kTries; ++attempt) {
    const fs::path path = parent / ("TessaraAnimate-" + std::to_string(random()));
    if (MakeOwnersFolder(path)) {
      return PrivateFolder(path);
    }
    if (GetLastError() != ERROR_ALREADY_EXISTS) {
      break;
    }
  }
  return LastError();
}

PrivateFolder::~PrivateFolder() {
  if (path_.empty()) {
    return;
  }
  if (const auto entries = ListEntries(path_)) {
    for (const FolderEntry& entry : *entries) {
      DeleteFileW((path_ / entry.name).c_str());
    }
  }
  RemoveDirectoryW(path_.c_str());
}

PrivateFolder::PrivateFolder(PrivateFolder&& other) noexcept
    : path_(std::exchange(other.path_, {})) {}

}  // namespace platform

#include "platform/file_hold.h"

#include <windows.h>

namespace platform {

FileHold::FileHold(const std::string& path) {
  // Sharing everything but deletion.
  auto* const handle = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                   nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle != INVALID_HANDLE_VALUE) {
    handle_.reset(handle);
  }
}

void FileHold::HandleCloser::operator()(void* handle) const {
  CloseHandle(handle);
}

}  // namespace platform

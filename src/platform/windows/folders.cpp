#include "platform/folders.h"

#include <windows.h>

#include "platform/windows/filled_text.h"

namespace platform {

bool MakeFolder(const std::string& path) {
  return CreateDirectoryA(path.c_str(), nullptr) != 0;
}

std::string CurrentFolder() {
  return FilledText<char>([](char* text, DWORD size) { return GetCurrentDirectoryA(size, text); });
}

bool EnterFolder(const std::string& path) {
  return SetCurrentDirectoryA(path.c_str()) != 0;
}

std::string SystemTempFolder() {
  std::string folder =
      FilledText<char>([](char* text, DWORD size) { return GetTempPathA(size, text); });
  if (!folder.empty() && folder.back() == '\\') {
    folder.pop_back();
  }
  return folder;
}

}  // namespace platform

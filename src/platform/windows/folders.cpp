#include "platform/folders.h"

#include <windows.h>

namespace platform {
namespace {

// Calls a system function that fills a text buffer and returns the length that it needs.
template <typename Fill>
std::string FilledText(Fill fill) {
  std::string text(1024, '\0');
  DWORD length = fill(static_cast<DWORD>(text.size()), text.data());
  if (length >= text.size()) {
    text.resize(length);
    length = fill(static_cast<DWORD>(text.size()), text.data());
  }
  text.resize(length);
  return text;
}

}  // namespace

bool MakeFolder(const std::string& path) {
  return CreateDirectoryA(path.c_str(), nullptr) != 0;
}

std::string CurrentFolder() {
  return FilledText(GetCurrentDirectoryA);
}

bool EnterFolder(const std::string& path) {
  return SetCurrentDirectoryA(path.c_str()) != 0;
}

std::string SystemTempFolder() {
  std::string folder = FilledText(GetTempPathA);
  if (!folder.empty() && folder.back() == '\\') {
    folder.pop_back();
  }
  return folder;
}

}  // namespace platform

#include "platform/folder_listing.h"

#include <windows.h>

#include "platform/owned.h"

namespace platform {

std::optional<std::vector<std::string>> ListFolder(const std::string& folder) {
  WIN32_FIND_DATAA entry = {};
  HANDLE found = FindFirstFileA((folder + "\\*.*").c_str(), &entry);
  if (found == INVALID_HANDLE_VALUE) {
    return std::nullopt;
  }
  const Owned<HANDLE, FindClose> search(found);
  std::vector<std::string> names;
  do {
    names.emplace_back(&entry.cFileName[0]);
  } while (FindNextFileA(search.get(), &entry) != 0);
  return names;
}

}  // namespace platform

#include "platform/folder_listing.h"

#include <windows.h>

#include <memory>

namespace platform {
namespace {

struct SearchCloser {
  using pointer = HANDLE;
  void operator()(HANDLE search) const { FindClose(search); }
};

}  // namespace

std::optional<std::vector<std::string>> ListFolder(const std::string& folder) {
  WIN32_FIND_DATAA entry = {};
  HANDLE found = FindFirstFileA((folder + "\\*.*").c_str(), &entry);
  if (found == INVALID_HANDLE_VALUE) {
    return std::nullopt;
  }
  const std::unique_ptr<HANDLE, SearchCloser> search(found);
  std::vector<std::string> names;
  do {
    names.emplace_back(&entry.cFileName[0]);
  } while (FindNextFileA(search.get(), &entry) != 0);
  return names;
}

}  // namespace platform

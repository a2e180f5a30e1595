#include "platform/folder_listing.h"

#include <dirent.h>
#include <strings.h>

#include <algorithm>
#include <tuple>

#include "platform/linux/native_path.h"
#include "platform/owned.h"

namespace platform {
namespace {

bool ListedBefore(const std::string& a, const std::string& b) {
  const bool aIsFolderItself = a == "." || a == "..";
  const bool bIsFolderItself = b == "." || b == "..";
  if (aIsFolderItself != bIsFolderItself) {
    return aIsFolderItself;
  }
  const int order = strcasecmp(a.c_str(), b.c_str());
  return order != 0 ? order < 0 : a < b;
}

}  // namespace

std::optional<std::vector<std::string>> ListFolder(const std::string& folder) {
  const Owned<DIR*, closedir> listing(opendir(NativePath(folder).c_str()));
  if (!listing) {
    return std::nullopt;
  }
  std::vector<std::string> names;
  while (const dirent* entry = readdir(listing.get())) {
    std::string name = &entry->d_name[0];
    if (name.find('\\') == std::string::npos) {
      names.push_back(std::move(name));
    }
  }
  std::sort(names.begin(), names.end(), ListedBefore);
  return names;
}

}  // namespace platform

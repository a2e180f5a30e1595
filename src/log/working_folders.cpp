#include "log/working_folders.h"

#include <cstdlib>
#include <ctime>

#include "platform/files.h"
#include "platform/folders.h"
#include "text/number.h"

namespace {

// The sub-folder of `parent` for this program, or `parent` itself when there cannot be one. The
// attributes are compared whole on purpose: a sub-folder that is read-only, compressed or in any
// other way special is not used.
CString OwnFolderUnder(const CString& parent) {
  CString folder = parent + "\\Tessara";
  if (platform::QueryAttributes(folder) != platform::kFolderAttribute &&
      !platform::MakeFolder(folder)) {
    return parent;
  }
  return folder;
}

}  // namespace

CString GetTempRootFolder() {
  if (const char* chosen = std::getenv("TESSARA_TEMP_PATH")) {
    platform::MakeFolder(chosen);
    return chosen;
  }
  if (const char* temp = std::getenv("TEMP")) {
    return OwnFolderUnder(temp);
  }
  if (const char* tmp = std::getenv("TMP")) {
    return tmp;
  }
  // Never the current folder: the sweep would delete a user's own images there.
  return OwnFolderUnder(platform::SystemTempFolder());
}

CString GetDatedFolderName(const CString& root) {
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  CString name = root + "\\Orbitane-" + IntToString(local.tm_year + 1900);
  for (const int part :
       {local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec}) {
    name += "-" + IntToString(part);
  }
  return name;
}

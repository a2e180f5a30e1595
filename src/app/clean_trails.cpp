#include "app/clean_trails.h"

#include "log/diagnostic_log.h"
#include "platform/files.h"
#include "platform/folder_listing.h"
#include "text/file_name.h"

namespace {

// Names with "_qmbImgTemp_" contain the marker too.
bool IsLeftover(const CString& name) {
  return IsImageExtension(GetFileExtension(name)) && name.Find("qmbImg") >= 0;
}

}  // namespace

void CleanTrails(const CString& folder) {
  WriteLog("TessaraAnimationConsole::CleanTrails:Start");
  const auto entries = platform::ListFolder(folder);
  if (!entries) {
    return;
  }
  for (const CString name : *entries) {
    if (IsLeftover(name)) {
      platform::RemoveFile(folder + "\\" + name);
    }
  }
  WriteLog("TessaraAnimationConsole::CleanTrails:End");
}

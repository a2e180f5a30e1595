#include "frames/working_images.h"

#include "log/diagnostic_log.h"
#include "platform/files.h"
#include "platform/folder_listing.h"
#include "text/file_name.h"

namespace {

// Every marker of a working image contains this one.
bool IsLeftover(const CString& name) {
  return IsImageExtension(GetFileExtension(name)) && name.Find("qmbImg") >= 0;
}

}  // namespace

bool IsViewerImage(const CString& name) {
  return name.Find("_qmbImgTemp_") >= 0;
}

void CleanTrails(const CString& folder) {
  WriteLog("TessaraAnimationConsole::CleanTrails:Start");
  if (folder.IsEmpty()) {
    return;
  }
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

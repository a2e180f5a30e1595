#include "frames/get_cae_data.h"
#include "frames/own_images.h"
#include "frames/working_images.h"
#include "log/diagnostic_log.h"
#include "platform/error_box.h"
#include "platform/folder_listing.h"
#include "text/file_name.h"
#include "text/number.h"

namespace {

bool IsFrameName(const CString& name) {
  return IsImageExtension(GetFileExtension(name)) && (!g_ownImages || IsViewerImage(name));
}

}  // namespace

bool k3dGetCAEData::GetFilesFromDirectory() {
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():Start");
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():m_sDirectoryName: " +
           m_sDirectoryName);
  const auto entries = platform::ListFolder(m_sDirectoryName);
  if (!entries) {
    return false;
  }
  for (const CString name : *entries) {
    if (IsFrameName(name)) {
      m_saFileNames.Add(name);
      WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():" + name);
    }
  }
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():No of Image Files:" +
           IntToString(m_saFileNames.GetSize()));

  // The log and the box of a single image spell "sufficient" differently; both are kept.
  if (m_saFileNames.IsEmpty()) {
    WriteLog(
        "TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():Input folder doesn't "
        "have image files");
    platform::ShowErrorBox("Input folder doesn't have image files!!!", "Tessara");
    return false;
  }
  if (m_saFileNames.GetSize() == 1) {
    WriteLog(
        "TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():Input folder doesn't "
        "have suffient image files to create movie");
    platform::ShowErrorBox("Input folder doesn't have sufficient image files to create movie!!!",
                           "Tessara");
    return false;
  }
  if (!GetCommonFileName()) {
    WriteLog(
        "TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():GetCommonFileName "
        "failed");
    return false;
  }
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():End");
  return true;
}

#include "frames/get_cae_data.h"
#include "log/diagnostic_log.h"
#include "platform/files.h"
#include "text/number.h"

void k3dGetCAEData::DeleteImageFiles() const {
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles():Start");
  for (const CString& path : m_saImageFiles) {
    platform::RemoveFile(path);
  }
  if (m_saImageFiles.IsEmpty()) {
    WriteLog(
        "TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles():no temp image files are "
        "created");
  } else {
    // The size of the list, not the number of files that are really gone.
    WriteLog("TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles(): deleted " +
             IntToString(m_saImageFiles.GetSize()) + " temp image files");
  }
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles():End");
}

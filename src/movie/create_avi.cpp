// The converter pipeline: from the frame list to the finished file.
#include "frames/working_images.h"
#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "movie/avi_creator.h"
#include "platform/files.h"
#include "text/file_name.h"
#include "text/number.h"

bool k3dAviCreator::CreateAVI() {
  WriteLog("TessaraAnimationConsole::k3dAviCreator::CreateAVI():Start");
  if (!GetTheImages() || m_caeData.m_saImageFiles.IsEmpty()) {
    return false;
  }
  if (!RenameTheImageFiles()) {
    return false;
  }
  // From here on the converter works from the copies alone.
  m_caeData.DeleteImageFiles();
  CString pattern;
  GetTheInputFormatFor_ffmpeg(pattern);
  const CString converter = GetExternalAppPath("ffmpeg");
  if (converter.IsEmpty()) {
    return false;
  }
  const bool isGif = GetFileExtension(m_sOutputFile).EqualsNoCase("gif");
  const CString palette = isGif ? g_tempRoot + "\\_bmq_palette_.png" : CString();
  RunConverter(converter, pattern, palette);
  DeleteTempImageFiles();
  platform::RemoveFile(palette);
  if (m_aTempImageFiles.IsEmpty()) {
    WriteLog(
        "TessaraAnimationConsole::k3dAviCreator::CreateAVI():no temp image files are created for "
        "ffmpeg");
  } else {
    WriteLog("TessaraAnimationConsole::k3dAviCreator::CreateAVI():deleted " +
             IntToString(m_aTempImageFiles.GetSize()) + " temp image files (created for ffmpeg)");
  }
  CleanTrails(g_tempRoot);
  WriteLog("TessaraAnimationConsole::k3dAviCreator::CreateAVI():End");
  return true;
}

bool k3dAviCreator::GetTheImages() {
  WriteLog("TessaraAnimationConsole::k3dAviCreator::GetTheImages():Start");
  m_caeData.m_saImageFiles.RemoveAll();
  m_caeData.m_sDirectoryName = m_sInputFolder;
  if (!m_caeData.GetFilesFromDirectory() || !m_caeData.GetCAEData()) {
    return false;
  }
  WriteLog("TessaraAnimationConsole::k3dAviCreator::GetTheImages():End");
  return true;
}

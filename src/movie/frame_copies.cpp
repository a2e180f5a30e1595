// The frame copies: gap-free, zero-padded names that the converter can expand a pattern to.
#include "frames/working_images.h"
#include "log/diagnostic_log.h"
#include "movie/avi_creator.h"
#include "platform/files.h"
#include "text/file_name.h"
#include "text/number.h"

namespace {

// The path that all copies' names begin with, in the folder of the first frame.
CString CopyBase(const CStringArray& frames) {
  return CutBeforeLast(frames.GetAt(0), '\\') + "\\" + &kFrameCopyStart[0];
}

// The converter knows "tiff" only. The test minds the case, so "TIF" stays.
CString CopyExtension(const CString& frame) {
  const CString extension = GetFileExtension(frame);
  return extension == "tif" ? "tiff" : extension;
}

CString ZeroPadded(int number, int width) {
  CString text;
  text.Format("%0*d", width, number);
  return text;
}

}  // namespace

bool k3dAviCreator::RenameTheImageFiles() {
  WriteLog("TessaraAnimationConsole::k3dAviCreator::RenameTheImageFiles():Start");
  const CStringArray& frames = m_caeData.m_saImageFiles;
  const CString base = CopyBase(frames);
  const int width = IntToString(frames.GetSize()).GetLength();
  int number = 0;
  for (const CString& frame : frames) {
    const CString copy = base + ZeroPadded(++number, width) + "." + CopyExtension(frame);
    if (platform::CopyFileReplacing(frame, copy)) {
      m_aTempImageFiles.Add(copy);
      WriteLog("TessaraAnimationConsole::k3dAviCreator::RenameTheImageFiles(): " + copy);
    } else {
      WriteLog("TessaraAnimationConsole::k3dAviCreator::RenameTheImageFiles():CopyFile failed");
    }
    m_sLastTempImage = copy;
  }
  WriteLog("TessaraAnimationConsole::k3dAviCreator::RenameTheImageFiles():End");
  return true;
}

void k3dAviCreator::GetTheInputFormatFor_ffmpeg(CString& pattern) const {
  WriteLog("TessaraAnimationConsole::k3dAviCreator::GetTheInputFormatFor_ffmpeg():Start");
  const CStringArray& frames = m_caeData.m_saImageFiles;
  const CString base = CopyBase(frames);
  const CString lastStem = CutBeforeLast(GetBareName(m_sLastTempImage), '.');
  const int digits = lastStem.GetLength() - CString(&kFrameCopyStart[0]).GetLength();
  pattern = base + "%" + IntToString(digits) + "d." + CopyExtension(frames.GetAt(0));
  WriteLog("TessaraAnimationConsole::k3dAviCreator::GetTheInputFormatFor_ffmpeg():End");
}

void k3dAviCreator::DeleteTempImageFiles() const {
  for (const CString& copy : m_aTempImageFiles) {
    platform::RemoveFile(copy);
  }
}

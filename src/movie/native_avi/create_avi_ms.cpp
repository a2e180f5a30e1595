// The movie creator's native writer: frames through GDI+ into an AVI, without a converter.
#include "log/diagnostic_log.h"
#include "movie/avi_creator.h"
#include "movie/native_avi/frame_bitmap.h"
#include "movie/native_avi/native_avi.h"

namespace {

// What the compression dialog proposes.
constexpr AVICOMPRESSOPTIONS kProposedCompression =
    CompressorOptions(mmioFOURCC('c', 'v', 'i', 'd'));

// No result is looked at: without a file, or after a cancelled dialog, every further call refuses.
void WriteFrames(const CStringArray& frames, const CString& path, DWORD period) {
  std::unique_ptr<AviHandle> avi = CreateAviFile(path, period, nullptr);
  bool isFirst = true;
  for (const CString& frame : frames) {
    const OwnedBitmap bitmap = LoadFrameBitmap(frame);
    if (isFirst) {
      SetVideoCompression(avi.get(), bitmap.get(), &kProposedCompression, true, nullptr);
      isFirst = false;
    }
    AddVideoFrame(avi.get(), bitmap.get());
  }
  CloseAviFile(std::move(avi));
}

}  // namespace

bool k3dAviCreator::CreateAVI_MS() const {
  WriteLog("TessaraAnimationConsole::k3dAviCreator::CreateAVI_MS:Start");
  try {
    WriteFrames(m_caeData.m_saImageFiles, m_sOutputFile, FramePeriod(m_nFrameRate));
    WriteLog("TessaraAnimationConsole::k3dAviCreator::CreateAVI_MS:done");
  } catch (...) {
    WriteLog("TessaraAnimationConsole::k3dAviCreator::CreateAVI_MS:Exception caught");
  }
  m_caeData.DeleteImageFiles();
  WriteLog("TessaraAnimationConsole::k3dAviCreator::CreateAVI_MS:End");
  return true;
}

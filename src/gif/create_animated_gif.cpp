// The driver: from a folder of frames to the finished GIF.
#include <exception>

#include "frames/working_images.h"
#include "gif/gif_anim_creator.h"
#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "platform/files.h"
#include "platform/images.h"
#include "text/file_name.h"

namespace {

constexpr int kDefaultFrameRate = 16;
constexpr std::size_t kOutputBuffer = 65536;

}  // namespace

int k3dGifAnimCreator::CreateAnimatedGif() {
  WriteLog("TessaraAnimationConsole::k3dGifAnimCreator::CreateAnimatedGif():Start");
  GetTheImageFiles();
  if (m_caeData.m_saImageFiles.IsEmpty()) {
    return 0;
  }
  m_nDelay = 100 / (m_nFrameRate < 1 ? kDefaultFrameRate : m_nFrameRate);
  platform::OwnedFile output = platform::OpenFile(m_sOutputFile, "wb");
  if (!output) {
    WriteLog(
        "TessaraAnimationConsole::k3dGifAnimCreator::CreateAnimatedGif():Not able to open the "
        "output file");
    return 0;
  }
  std::setvbuf(output.get(), nullptr, _IOFBF, kOutputBuffer);
  try {
    AppendFrames(output.get());
    std::fputc(';', output.get());
    output.reset();
    WriteLog("TessaraAnimationConsole::k3dGifAnimCreator::CreateAnimatedGif():done");
  } catch (const std::exception&) {
    WriteLog("TessaraAnimationConsole::k3dGifAnimCreator::CreateAnimatedGif():Exception caught");
  }
  m_caeData.DeleteImageFiles();
  CleanTrails(g_tempRoot);
  WriteLog("TessaraAnimationConsole::k3dGifAnimCreator::CreateAnimatedGif():End");
  return 1;
}

void k3dGifAnimCreator::GetTheImageFiles() {
  WriteLog("TessaraAnimationConsole::k3dGifAnimCreator::GetTheImageFiles():Start");
  m_caeData.m_saImageFiles.RemoveAll();
  m_caeData.m_sDirectoryName = m_sInputFolder;
  // A failed scan shows its own box; asking for the order all the same shows a second one.
  m_caeData.GetFilesFromDirectory();
  m_caeData.GetCAEData();
  WriteLog("TessaraAnimationConsole::k3dGifAnimCreator::GetTheImageFiles():End");
}

void k3dGifAnimCreator::AppendFrames(std::FILE* output) {
  int first = 1;
  for (const CString& path : m_caeData.m_saImageFiles) {
    const CString extension = GetFileExtension(path);
    if (extension.EqualsNoCase("gif")) {
      AppendGifFile(path, output, first);
    } else if (IsImageExtension(extension)) {
      AppendConverted(path, output, first);
    }
    // Also when this frame brought nothing: no later frame writes the header in its place.
    first = 0;
  }
}

void k3dGifAnimCreator::AppendConverted(const CString& path, std::FILE* output, int first) {
  const CString temporary = g_tempRoot + "\\" + &kTemporaryGifName[0];
  // A picture of an earlier run must not stand in for one that cannot be converted.
  platform::RemoveFile(temporary);
  // A conversion that fails shows only as a file that cannot be opened.
  platform::ImageEncoder encoder = {};
  platform::FindImageEncoder(L"image/gif", encoder);
  platform::ConvertImage(path, temporary, encoder);
  AppendGifFile(temporary, output, first);
  platform::RemoveFile(temporary);
}

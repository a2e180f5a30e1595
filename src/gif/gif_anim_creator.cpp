#include "gif/gif_anim_creator.h"

#include <cstdlib>
#include <optional>

#include "frames/working_images.h"
#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/images.h"
#include "text/file_name.h"

namespace {

constexpr std::size_t kOutputBuffer = 65536;
constexpr int kBrokenOffStatus = 4;

}  // namespace

CString TemporaryGifPath(const CString& tempRoot) {
  // The environment can ask for an empty temp root.
  return (tempRoot.IsEmpty() ? CString(platform::SystemTempFolder()) : tempRoot) + "\\" +
         &kTemporaryGifName[0];
}

int k3dGifAnimCreator::CreateAnimatedGif() {
  if (g_tempRoot.IsEmpty()) {
    StartLog();
  }
  WriteLog("TessaraAnimationConsole::k3dGifAnimCreator::CreateAnimatedGif():Start");
  GetTheImageFiles();
  if (m_caeData.m_saImageFiles.IsEmpty()) {
    return 0;
  }
  m_merger.settings.delay = 100 / UsableFrameRate(m_nFrameRate);
  platform::OwnedFile output = platform::OpenFile(m_sOutputFile, "wb");
  if (!output) {
    WriteLog(
        "TessaraAnimationConsole::k3dGifAnimCreator::CreateAnimatedGif():Not able to open the output file");
    return 0;
  }
  std::setvbuf(output.get(), nullptr, _IOFBF, kOutputBuffer);
  try {
    AppendFrames(output.get());
    std::fputc(';', output.get());
    output.reset();
    WriteLog("TessaraAnimationConsole::k3dGifAnimCreator::CreateAnimatedGif():done");
  } catch (...) {
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

bool k3dGifAnimCreator::AppendGifFile(const CString& path, std::FILE* output, int first) {
  const GifFrameResult result = m_merger.AppendFile(path, output, first != 0);
  if (result == GifFrameResult::kBrokenOff) {
    std::fflush(output);
    std::exit(kBrokenOffStatus);
  }
  return result == GifFrameResult::kCopied;
}

void k3dGifAnimCreator::AppendFrames(std::FILE* output) {
  m_bFirstFrameCopied = false;
  int first = 1;
  for (const CString& path : m_caeData.m_saImageFiles) {
    const CString extension = GetFileExtension(path);
    bool copied = false;
    if (extension.EqualsNoCase("gif")) {
      copied = AppendGifFile(path, output, first);
    } else if (IsImageExtension(extension)) {
      copied = AppendConverted(path, output, first);
    }
    if (first != 0) {
      m_bFirstFrameCopied = copied;
    }
    // Also when this frame brought nothing: no later frame writes the header in its place.
    first = 0;
  }
}

bool k3dGifAnimCreator::AppendConverted(const CString& path, std::FILE* output, int first) {
  const CString temporary = TemporaryGifPath(g_tempRoot);
  // A picture of an earlier run must not stand in for one that cannot be converted.
  platform::RemoveFile(temporary);
  // A conversion that fails shows only as a file that cannot be opened.
  const auto encoder = platform::FindImageEncoder(L"image/gif");
  if (platform::ConvertImage(path, temporary, encoder.value_or(platform::ImageEncoder()))) {
    m_aHeld.emplace_back(path);
  }
  const bool copied = AppendGifFile(temporary, output, first);
  platform::RemoveFile(temporary);
  return copied;
}

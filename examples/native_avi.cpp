// Makes an AVI of a folder of frames with the native writer instead of the converter:
//
//   native_avi InputFolder OutputFile [-FR n] ... [--uncompressed]
//
// The options are those of the console program. The compression dialog asks for the compressor;
// with --uncompressed there is no dialog and no compression. Frames that cannot be loaded or differ
// in size are refused, and nothing is deleted. The exit status is 0 when the output holds every
// frame, otherwise 1, after a line that says what is wrong.
#include <cstring>
#include <string>
#include <vector>

#include "app/command_line.h"
#include "app/console.h"
#include "log/diagnostic_log.h"
#include "movie/avi_creator.h"
#include "movie/native_avi/frame_bitmap.h"
#include "movie/native_avi/native_avi.h"
#include "platform/files.h"
#include "platform/gdiplus.h"

namespace {

// The writer deletes the frames even when it could not create its file, so that is tried first. A
// file of an earlier run is gone afterwards, and cannot be taken for the result of this one.
bool CanCreate(const CString& path) {
  const bool created = platform::OpenFile(path, "wb") != nullptr;
  platform::RemoveFile(path);
  return created;
}

// Whether an AVI can hold the frames: each loads, in the size of the first. Says which does not.
bool CheckFrames(const CStringArray& frames) {
  BITMAP first = {};
  for (const CString& frame : frames) {
    BITMAP info = {};
    if (GetObjectA(LoadFrameBitmap(frame).get(), sizeof(info), &info) == 0) {
      ConsolePrint("%s: cannot be loaded\n", frame.GetString());
      return false;
    }
    if (first.bmWidth == 0) {
      first = info;
    }
    if (info.bmWidth != first.bmWidth || info.bmHeight != first.bmHeight) {
      ConsolePrint("%s: is %ldx%ld pixels, the first frame is %ldx%ld\n", frame.GetString(),
                   info.bmWidth, info.bmHeight, first.bmWidth, first.bmHeight);
      return false;
    }
  }
  return true;
}

std::string ResultText(HRESULT code) {
  std::string text(AviResultText(code, nullptr, 0), '\0');
  AviResultText(code, text.data(), text.size() + 1);
  return text;
}

void WriteUncompressed(const k3dAviCreator& settings) {
  std::unique_ptr<AviHandle> avi =
      CreateAviFile(settings.m_sOutputFile, FramePeriod(settings.m_nFrameRate), nullptr);
  for (const CString& frame : settings.m_caeData.m_saImageFiles) {
    const HRESULT result = AddVideoFrame(avi.get(), LoadFrameBitmap(frame).get());
    if (result != AVIERR_OK) {
      ConsolePrint("%s: %s\n", frame.GetString(), ResultText(result).c_str());
    }
  }
  CloseAviFile(std::move(avi));
}

// The number of frames in an AVI; 0 when it cannot be read or has no video.
LONG CountFrames(const CString& path) {
  const AviLibrary library;
  IAVIFile* file = nullptr;
  if (AVIFileOpenA(&file, path.GetString(), OF_READ, nullptr) != AVIERR_OK) {
    return 0;
  }
  const OwnedAviFile ownedFile(file);
  IAVIStream* stream = nullptr;
  if (AVIFileGetStream(file, &stream, streamtypeVIDEO, 0) != AVIERR_OK) {
    return 0;
  }
  const OwnedAviStream ownedStream(stream);
  return AVIStreamLength(stream);
}

int Run(std::vector<char*> arguments) {
  // Taken out before the option reader looks, so it may stand anywhere.
  const bool uncompressed = std::erase_if(arguments, [](const char* argument) {
                              return std::strcmp(argument, "--uncompressed") == 0;
                            }) > 0;
  if (arguments.size() < 3) {
    ConsolePrint("Usage: native_avi InputFolder OutputFile [-FR n] ... [--uncompressed]\n");
    return 1;
  }
  StartLog();
  const platform::GdiplusSession gdiplus;
  ParseCommandLineForAVI(static_cast<int>(arguments.size()), arguments.data());
  k3dAviCreator& creator = g_aviCreator;
  const char* const output = creator.m_sOutputFile.GetString();
  if (!creator.GetTheImages()) {
    ConsolePrint("%s: no frames\n", creator.m_sInputFolder.GetString());
    return 1;
  }
  if (!CheckFrames(creator.m_caeData.m_saImageFiles)) {
    return 1;
  }
  if (!CanCreate(creator.m_sOutputFile)) {
    ConsolePrint("%s: cannot be created\n", output);
    return 1;
  }
  if (uncompressed) {
    WriteUncompressed(creator);
  } else {
    creator.CreateAVI_MS();
  }
  const LONG listed = creator.m_caeData.m_saImageFiles.GetSize();
  const LONG written = CountFrames(creator.m_sOutputFile);
  ConsolePrint("%s: %ld of %ld frames\n", output, written, listed);
  if (written != listed) {
    return 1;
  }
  if (uncompressed) {
    creator.m_caeData.DeleteImageFiles();
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return Run({argv, argv + argc});
}

#include "movie/avi_creator.h"

#include <cstdlib>
#include <optional>

#include "frames/working_images.h"
#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/program.h"
#include "text/file_name.h"
#include "text/frame_copies.h"
#include "text/number.h"

namespace {

// A parameter string is the converter's whole command line; the blank in front ends the empty name
// that the converter sees as its own. Blanks are kept exactly, doubled and trailing ones included.
constexpr char kGifPaletteParameters[] =
    R"( -v warning -i "%s" -vf "fps=%s,scale=-1:-1:flags=lanczos,palettegen" -y "%s" )";
constexpr char kGifParameters[] =
    R"( -v warning -i "%s" -i  "%s" -lavfi "setpts=%f*PTS,scale=-1:-1:flags=lanczos [x]; [x][1:v] paletteuse" -y "%s" )";
constexpr char kAviParameters[] =
    R"( -framerate %s -i "%s" -q:v 2  -c:v msmpeg4v3 -pix_fmt yuv420p "%s" )";
constexpr char kMp4Parameters[] =
    R"( -framerate  %s  -i  "%s"  -c:v libx264 -vf %s -pix_fmt yuv420p  "%s" )";
constexpr char kWmvParameters[] = R"( -framerate %s -i "%s" -qscale 1  -vcodec msmpeg4v3 "%s")";
constexpr char kOtherParameters[] = R"( -r %s -i "%s" -qscale 1 -filter:v "setpts=%f*PTS" "%s")";

// In characters; what is longer is cut.
constexpr int kCommandLineLimit = 1024;

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

bool Exists(const CString& path) {
  return platform::QueryAttributes(path).has_value();
}

}  // namespace

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
        "TessaraAnimationConsole::k3dAviCreator::CreateAVI():no temp image files are created for ffmpeg");
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

void k3dAviCreator::RunConverter(const CString& converter, const CString& pattern,
                                 const CString& palette) {
  const CString rateText = IntToString(m_nFrameRate);
  const char* const rate = rateText.GetString();
  const char* const input = pattern.GetString();
  const char* const output = m_sOutputFile.GetString();
  const double timeFactor = m_fSizeFactor;
  const CString extension = GetFileExtension(m_sOutputFile);
  CString parameters;
  if (extension.EqualsNoCase("gif")) {
    // The first pass builds the palette that the second one draws with.
    parameters.Format(&kGifPaletteParameters[0], input, rate, palette.GetString());
    RunExternalApp(converter, parameters);
    parameters.Format(&kGifParameters[0], input, palette.GetString(), timeFactor, output);
  } else if (extension.EqualsNoCase("avi")) {
    parameters.Format(&kAviParameters[0], rate, input, output);
  } else if (extension.EqualsNoCase("mp4")) {
    m_nWidth = RaisedToEven(m_nWidth);
    m_nHeight = RaisedToEven(m_nHeight);
    CString scale;
    scale.Format("scale=%d:%d", m_nWidth, m_nHeight);
    parameters.Format(&kMp4Parameters[0], rate, input, scale.GetString(), output);
  } else if (extension.EqualsNoCase("wmv")) {
    parameters.Format(&kWmvParameters[0], rate, input, output);
  } else {
    parameters.Format(&kOtherParameters[0], rate, input, timeFactor, output);
  }
  RunExternalApp(converter, parameters);
}

CString k3dAviCreator::GetExternalAppPath(const CString& name) {
  const CString fileName = platform::ExecutableFileName(name);
  CString path = CString(platform::OwnProgramFolder()) + "\\" + fileName;
  if (Exists(path)) {
    return path;
  }
  WriteLog(
      "TessaraAnimationConsole::k3dAviCreator::GetExternalAppPath(): Required App is not available in local path");
  const char* installation = std::getenv("TESSARA_DIR");
  if (installation == nullptr) {
    WriteLog(
        "TessaraAnimationConsole::k3dAviCreator::GetExternalAppPath(): TESSARA_DIR is not set");
    return "";
  }
  path = CString(installation) + "\\TessaraPro64\\" + fileName;
  if (Exists(path)) {
    return path;
  }
  WriteLog(
      "TessaraAnimationConsole::k3dAviCreator::GetExternalAppPath(): Required component is missing in TESSARA_DIR!!!");
  return "";
}

bool k3dAviCreator::RunExternalApp(const CString& appPath, const CString& params) const {
  try {
    const CString commandLine = params.Left(kCommandLineLimit);
    WriteLog("TessaraAnimationConsole::k3dAviCreator::RunExternalApp():ConverterPath:" + appPath);
    WriteLog("TessaraAnimationConsole::k3dAviCreator::RunExternalApp():Params:" + commandLine);
    const std::optional<int> error = platform::RunHidden(appPath, commandLine);
    if (error) {
      DeleteTempImageFiles();
      WriteLog("TessaraAnimationConsole::k3dAviCreator::RunExternalApp():CreateProcess failed " +
               IntToString(*error));
      return false;
    }
    WriteLog("TessaraAnimationConsole::k3dAviCreator::RunExternalApp():done");
    return true;
  } catch (...) {
    WriteLog(
        "TessaraAnimationConsole::k3dAviCreator::RunExternalApp():CreateProcess():Exception caught");
    return false;
  }
}

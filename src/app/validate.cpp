#include "app/validate.h"

#include <algorithm>
#include <array>

#include "app/console.h"
#include "log/diagnostic_log.h"
#include "platform/folders.h"
#include "text/file_name.h"

namespace {

bool IsSupportedFormat(const CString& extension) {
  static const std::array<CString, 6> kFormats = {"gif", "mp4", "wmv", "flv", "avi", "swf"};
  return std::any_of(kFormats.begin(), kFormats.end(),
                     [&](const CString& format) { return extension.EqualsNoCase(format); });
}

// Whether `folder` can be made the current folder; `current` is made so again afterwards.
bool CanEnter(const CString& folder, const CString& current) {
  const bool entered = platform::EnterFolder(folder);
  platform::EnterFolder(current);
  return entered;
}

}  // namespace

bool Validate(const CString& inputFolder, const CString& outputFile) {
  WriteLog("TessaraAnimationConsole::Validate: Start");
  const CString current = platform::CurrentFolder();
  WriteLog("TessaraAnimationConsole::Validate:CurrentDirectory:" + current);
  WriteLog("TessaraAnimationConsole::Validate:Input Folder:" + inputFolder);
  if (!CanEnter(inputFolder, current)) {
    WriteLog("TessaraAnimationConsole::Validate:Couldn't find the Input directory");
    ConsolePrint("\nError : Couldn't find the input directory !!!\n");
    return false;
  }
  WriteLog("TessaraAnimationConsole::Validate:Output File:" + outputFile);
  if (!IsSupportedFormat(GetFileExtension(outputFile))) {
    WriteLog("TessaraAnimationConsole::Validate:output format is not supported");
    ConsolePrint("Error : The output format is not supported!!!\n");
    return false;
  }
  // Only a backslash separates a folder here; a path without one is not checked.
  const int backslash = outputFile.ReverseFind('\\');
  if (backslash > 0 && !CanEnter(outputFile.Left(backslash), current)) {
    WriteLog("TessaraAnimationConsole::Validate:Couldn't find the output directory");
    ConsolePrint("\nError : Couldn't find the output directory !!!\n");
    return false;
  }
  WriteLog("TessaraAnimationConsole::Validate End");
  return true;
}

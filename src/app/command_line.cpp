#include "app/command_line.h"

#include <optional>

#include "app/console.h"
#include "frames/own_images.h"
#include "log/diagnostic_log.h"
#include "mfc/cstring.h"
#include "movie/avi_creator.h"
#include "text/number.h"

namespace {

bool Contains(const CString& argument, const CString& word) {
  return argument.Find(word) >= 0;
}

}  // namespace

void PrintGeneralUsage() {
  ConsolePrint("\nUsage: Executable InputFolder  OutputFile \n\n");
  ConsolePrint("Help for Creating GIF file\n");
  ConsolePrint("Executable /gif\n\n");
  ConsolePrint("Help for Creating AVI file\n");
  ConsolePrint("Executable /avi\n\n");
}

void PrintGifUsage() {
  ConsolePrint("\nUsage:\n");
  ConsolePrint("Executable InputFolder OutputFile <-FR value> \n");
  ConsolePrint("FR - Frame Rate\n\n");
}

void PrintMovieUsage() {
  ConsolePrint("\nUsage:\n");
  ConsolePrint("Executable InputFolder OutputFile <-FR value> <-S value> \n");
  ConsolePrint("FR - Frame Rate\n");
  ConsolePrint("S  - Size  value is percentage\n");
}

bool ParseCommandLineForAVI(int argc, char** argv) {
  WriteLog("TessaraAnimationConsole::ParseCommandLineForAVI:Start");
  k3dAviCreator& settings = g_aviCreator;
  settings.m_bSettingsRead = true;
  for (int index = 1; index < argc; ++index) {
    const CString argument = argv[index];
    const char* const value = index + 1 < argc ? argv[index + 1] : nullptr;
    const char* const secondValue = index + 2 < argc ? argv[index + 2] : nullptr;
    if (index == 1) {
      settings.m_sInputFolder = argument;
      continue;
    }
    if (index == 2) {
      settings.m_sOutputFile = argument;
      continue;
    }
    if (value == nullptr) {
      continue;
    }
    // One argument may match several options.
    if (Contains(argument, "-TESSARA_IMAGES")) {
      g_ownImages = ReadInteger(value) != 0;
    }
    if (Contains(argument, "-FR") || Contains(argument, "-fr")) {
      settings.m_nFrameRate = ReadInteger(value);
    }
    if (Contains(argument, "-SF") || Contains(argument, "-sf")) {
      settings.m_fSizeFactor = ReadFloat(value);
    }
    if (Contains(argument, "-IMG_DIM") || Contains(argument, "-img-dim")) {
      settings.m_nWidth = ReadInteger(value);
      if (secondValue != nullptr) {
        settings.m_nHeight = ReadInteger(secondValue);
      }
    }
  }
  WriteLog("TessaraAnimationConsole::ParseCommandLineForAVI:End");
  return true;
}

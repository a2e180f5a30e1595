#include "app/command_line.h"

#include <optional>

#include "app/console.h"
#include "frames/frame_rate.h"
#include "frames/own_images.h"
#include "gif/gif_anim_creator.h"
#include "log/diagnostic_log.h"
#include "movie/avi_creator.h"
#include "text/cstring.h"
#include "text/number.h"

namespace {

constexpr int kLargestGifFrameRate = 30;

// An argument that may be an option word, the value after it, and the one after that, if any.
struct Option {
  CString word;
  CString value;
  std::optional<CString> secondValue;

  bool Has(const CString& name) const { return word.Find(name) >= 0; }
};

// Sets the two paths of a creator and the own-images flag, and applies the creator's own rules to
// every argument that has a value after it. One argument may match several options.
template <typename Creator, typename Rules>
void WalkArguments(int argc, char** argv, Creator& creator, const Rules& applyRules) {
  if (argc > 1) {
    creator.m_sInputFolder = argv[1];
  }
  if (argc > 2) {
    creator.m_sOutputFile = argv[2];
  }
  for (int index = 3; index + 1 < argc; ++index) {
    Option option = {argv[index], argv[index + 1], std::nullopt};
    if (index + 2 < argc) {
      option.secondValue = argv[index + 2];
    }
    if (option.Has("-TESSARA_IMAGES")) {
      g_ownImages = ReadInteger(option.value) != 0;
    }
    applyRules(creator, option);
  }
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
  g_aviCreator.m_bSettingsRead = true;
  WalkArguments(argc, argv, g_aviCreator, [](k3dAviCreator& settings, const Option& option) {
    if (option.Has("-FR") || option.Has("-fr")) {
      settings.m_nFrameRate = ReadInteger(option.value);
    }
    if (option.Has("-SF") || option.Has("-sf")) {
      settings.m_fSizeFactor = ReadFloat(option.value);
    }
    if (option.Has("-IMG_DIM") || option.Has("-img-dim")) {
      settings.m_nWidth = ReadInteger(option.value);
      if (option.secondValue) {
        settings.m_nHeight = ReadInteger(*option.secondValue);
      }
    }
  });
  WriteLog("TessaraAnimationConsole::ParseCommandLineForAVI:End");
  return true;
}

bool ParseCommandLineForGIF(int argc, char** argv) {
  WriteLog("TessaraAnimationConsole::ParseCommandLineForGIF:Start");
  WalkArguments(argc, argv, g_gifAnimCreator,
                [](k3dGifAnimCreator& settings, const Option& option) {
                  if (option.Has("-FR") || option.Has("-fr")) {
                    const int rate = ReadInteger(option.value);
                    settings.m_nFrameRate = rate > kLargestGifFrameRate ? kDefaultFrameRate : rate;
                  }
                });
  WriteLog("TessaraAnimationConsole::ParseCommandLineForGIF:End");
  return true;
}

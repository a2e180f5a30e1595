#include "app/create_movie.h"

#include "app/command_line.h"
#include "app/console.h"
#include "app/validate.h"
#include "frames/own_images.h"
#include "log/diagnostic_log.h"
#include "movie/avi_creator.h"
#include "platform/gdiplus.h"
#include "text/cstring.h"

namespace {

bool MakeMovie(int argc, char** argv) {
  WriteLog("TessaraAnimationConsole::CreateMovie():Start");
  platform::GdiplusSession gdiplus;
  WriteLog("TessaraAnimationConsole::CreateMovie():GdiplusStartup completed ");
  if (!Validate(argv[1], argv[2])) {
    ConsolePrint("\n\nFailed to Create the animation file\n\n");
    WriteLog("TessaraAnimationConsole::CreateMovie():Validation failed ");
    return false;
  }
  // Every format takes the movie path, GIF included.
  WriteLog("TessaraAnimationConsole::CreateMovie():Output is AVI ");
  if (!ParseCommandLineForAVI(argc, argv)) {
    WriteLog("TessaraAnimationConsole::CreateMovie():ParseCommandLine failed ");
    return false;
  }
  if (g_ownImages) {
    WriteLog("TessaraAnimationConsole::CreateMovie():Create Movie from Images created by Tessara");
  } else {
    WriteLog("TessaraAnimationConsole::CreateMovie():Make Movie from External Images");
  }
  if (!g_aviCreator.CreateAVI()) {
    WriteLog("TessaraAnimationConsole::CreateMovie():AVI creation failed");
    ConsolePrint("\n\nFailed to create AVI\n\n");
    return false;
  }
  WriteLog("TessaraAnimationConsole::CreateMovie():AVI is created");
  gdiplus.Stop();
  WriteLog("TessaraAnimationConsole::CreateMovie():GdiplusShutdown completed");
  return true;
}

}  // namespace

bool CreateMovie(int argc, char** argv, char** /*envp*/) {
  // The program's own name is the first entry; a caller may leave even that out.
  if (argc == 0) {
    PrintMovieUsage();
    return false;
  }
  if (argc == 1) {
    PrintGeneralUsage();
    return false;
  }
  // The switches are found anywhere in the first argument, so a folder such as D:/gifs/run1 asks
  // for help as well.
  const CString first = argv[1];
  if (first.Find("/gif") >= 0) {
    PrintGifUsage();
    return false;
  }
  if (first.Find("/avi") >= 0) {
    PrintMovieUsage();
    return false;
  }
  // A folder without an output file: nothing to do, and callers count on this as a success.
  if (argc == 2) {
    return true;
  }
  return MakeMovie(argc, argv);
}

#include "app/run_sequence.h"

#include <iostream>

#include "app/clean_trails.h"
#include "app/console.h"
#include "app/create_movie.h"
#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "mfc/cstring.h"
#include "mfc/win_app.h"
#include "platform/program.h"
#include "sysinfo/system_information.h"

int RunConsole(int argc, char** argv, char** envp) {
  g_tempRoot = GetTempRootFolder();
  InitLog(g_tempRoot + "\\TessaraMovieConsole_Log.txt", true);
  if (AfxWinInit(platform::OwnModule(), nullptr, platform::RawCommandLine().c_str(), 0) == 0) {
    std::cerr << "Fatal Error: MFC initialization failed" << std::endl;
    return 1;
  }
  LogVersionInfo();
  CString arguments = "TessaraAnimationConsole::Args-> ";
  for (int index = 0; index < argc; ++index) {
    arguments += argv[index];
    arguments += ' ';
  }
  WriteLog(arguments);
  LogOSVersion();
  const bool created = CreateMovie(argc, argv, envp);
  CleanTrails(g_tempRoot);
  if (created) {
    ConsolePrint("\n\n Animation created successfully!!!\n\n");
  }
  WriteLog("TessaraAnimationConsole::End");
  return 0;
}

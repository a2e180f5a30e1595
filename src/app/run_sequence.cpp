#include "app/run_sequence.h"

#include <iostream>

#include "app/console.h"
#include "app/create_movie.h"
#include "app/win_app.h"
#include "frames/working_images.h"
#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "platform/program.h"
#include "sysinfo/system_information.h"
#include "text/cstring.h"

int RunConsole(int argc, char** argv, char** envp) {
  StartLog();
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

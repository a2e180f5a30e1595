#include "log/diagnostic_log.h"

#include <cstdio>
#include <ctime>
#include <string>

#include "log/working_folders.h"
#include "platform/error_box.h"
#include "platform/files.h"

namespace {

struct LogFile {
  CString path;
  platform::OwnedFile stream;
};

LogFile& TheLog() {
  static LogFile log;
  return log;
}

}  // namespace

void StartLog() {
  g_tempRoot = GetTempRootFolder();
  InitLog(g_tempRoot + "\\TessaraMovieConsole_Log.txt", true);
}

bool InitLog(const CString& path, bool exactPath) {
  LogFile& log = TheLog();
  log.path = exactPath ? path : GetDatedFolderName(GetTempRootFolder()) + "\\" + path;
  if (platform::QueryAttributes(log.path)) {
    log.stream = platform::OpenFile(log.path, "a");
  }
  return true;
}

void WriteLog(const CString& message, bool showBox) {
  LogFile& log = TheLog();
  if (!log.stream) {
    log.stream = platform::OpenFile(log.path, "a");
  }
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  CString line;
  line.Format("[%d:%d:%d, %d-%d-%d] ", local.tm_hour, local.tm_min, local.tm_sec, local.tm_mday,
              local.tm_mon + 1, local.tm_year + 1900);
  line += message;
  line += '\n';
  if (log.stream) {
    std::fputs(line.GetString(), log.stream.get());
  }
  if (showBox) {
    if (log.stream) {
      std::fflush(log.stream.get());
    }
    platform::ShowErrorBox(message, "Orbitane");
  }
  log.stream.reset();
}

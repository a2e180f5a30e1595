#include "log/diagnostic_log.h"

#include <ctime>
#include <fstream>

#include "log/working_folders.h"
#include "platform/error_box.h"
#include "platform/files.h"

namespace {

struct LogFile {
  CString path;
  std::ofstream stream;
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
    platform::OpenForAppending(log.stream, log.path);
  }
  return true;
}

void WriteLog(const CString& message, bool showBox) {
  LogFile& log = TheLog();
  if (!log.stream.is_open()) {
    platform::OpenForAppending(log.stream, log.path);
  }
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  log.stream << '[' << local.tm_hour << ':' << local.tm_min << ':' << local.tm_sec << ", "
             << local.tm_mday << '-' << local.tm_mon + 1 << '-' << local.tm_year + 1900 << "] "
             << message.GetString() << '\n';
  if (showBox) {
    log.stream.flush();
    platform::ShowErrorBox(message, "Orbitane");
  }
  log.stream.close();
}

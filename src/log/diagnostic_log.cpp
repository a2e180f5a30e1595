#include "log/diagnostic_log.h"

#include <ctime>
#include <fstream>

#include "log/working_folders.h"
#include "platform/error_box.h"
#include "platform/files.h"

namespace {

struct LogFile {
  CString folder;
  CString path;
  std::ofstream stream;
};

LogFile& TheLog() {
  static LogFile log;
  return log;
}

// The folder part of a path, with its backslash when a file name follows.
CString FolderPart(const CString& path) {
  const int backslash = path.ReverseFind('\\');
  if (backslash < 0) {
    return ".\\";
  }
  const bool nameFollows = backslash + 1 < path.GetLength();
  return path.Left(nameFollows ? backslash + 1 : backslash);
}

}  // namespace

bool InitLog(const CString& path, bool exactPath) {
  LogFile& log = TheLog();
  if (exactPath) {
    log.folder = FolderPart(path);
    log.path = path;
  } else {
    log.folder = GetDatedFolderName(GetTempRootFolder());
    log.path = log.folder + "\\" + path;
  }
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

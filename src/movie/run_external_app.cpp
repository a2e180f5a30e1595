// Finding the external converter and running it.
#include <cstdlib>
#include <exception>
#include <optional>

#include "log/diagnostic_log.h"
#include "movie/avi_creator.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/program.h"
#include "text/number.h"

namespace {

constexpr int kCommandLineLimit = 1024;

bool Exists(const CString& path) {
  return platform::QueryAttributes(path).has_value();
}

}  // namespace

CString k3dAviCreator::GetExternalAppPath(const CString& name) {
  const CString fileName = platform::ExecutableFileName(name);
  CString path = CString(platform::OwnProgramFolder()) + "\\" + fileName;
  if (Exists(path)) {
    return path;
  }
  WriteLog(
      "TessaraAnimationConsole::k3dAviCreator::GetExternalAppPath(): Required App is not available "
      "in local path");
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
      "TessaraAnimationConsole::k3dAviCreator::GetExternalAppPath(): Required component is missing "
      "in TESSARA_DIR!!!");
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
  } catch (const std::exception&) {
    WriteLog(
        "TessaraAnimationConsole::k3dAviCreator::RunExternalApp():CreateProcess():Exception "
        "caught");
    return false;
  }
}

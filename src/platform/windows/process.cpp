#include "platform/process.h"

#include <windows.h>

#include "platform/owned.h"

namespace platform {

std::optional<int> RunHidden(const std::string& applicationPath, const std::string& commandLine) {
  // Process creation may write into the command line, so it gets a copy.
  std::string buffer = commandLine;
  STARTUPINFOA startUp = {};
  startUp.cb = sizeof(startUp);
  startUp.dwFlags = STARTF_USESHOWWINDOW;
  startUp.wShowWindow = SW_HIDE;
  PROCESS_INFORMATION created = {};
  if (CreateProcessA(applicationPath.c_str(), buffer.data(), nullptr, nullptr, FALSE,
                     CREATE_NO_WINDOW, nullptr, nullptr, &startUp, &created) == 0) {
    return static_cast<int>(GetLastError());
  }
  const Owned<HANDLE, CloseHandle> thread(created.hThread);
  const Owned<HANDLE, CloseHandle> process(created.hProcess);
  WaitForSingleObject(process.get(), INFINITE);
  return std::nullopt;
}

}  // namespace platform

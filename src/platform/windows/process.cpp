#include "platform/process.h"

#include <windows.h>

#include <memory>

namespace platform {
namespace {

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<HANDLE, HandleCloser>;

}  // namespace

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
  const OwnedHandle thread(created.hThread);
  const OwnedHandle process(created.hProcess);
  WaitForSingleObject(process.get(), INFINITE);
  return std::nullopt;
}

}  // namespace platform

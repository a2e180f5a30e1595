#include "platform/program.h"

#include <windows.h>

#include <array>

// The run-time library would otherwise expand "*" and "?" in arguments to file names.
extern "C" int _dowildcard;
int _dowildcard = 0;

namespace platform {

std::string OwnProgramFolder() {
  std::array<char, 260> path = {};
  const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
  const std::string program(path.data(), length);
  return program.substr(0, program.rfind('\\'));
}

std::string ExecutableFileName(const std::string& bareName) {
  return bareName + ".exe";
}

const void* OwnModule() {
  return GetModuleHandleA(nullptr);
}

std::string RawCommandLine() {
  return GetCommandLineA();
}

const char* ApplicationLine() {
  return "TessaraAnimationConsole: Win64 Application";
}

}  // namespace platform

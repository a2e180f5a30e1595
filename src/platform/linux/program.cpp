#include "platform/program.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace platform {

std::string OwnProgramFolder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

std::string ExecutableFileName(const std::string& bareName) {
  return bareName;
}

const void* OwnModule() {
  // There are no module handles here; any address inside the program stands for one.
  static const char inside = 0;
  return &inside;
}

std::string RawCommandLine() {
  const std::ifstream file("/proc/self/cmdline", std::ios::binary);
  std::ostringstream line;
  // Where reading fails, the stream that is written to says so.
  line << file.rdbuf();
  return line ? line.str() : std::string();
}

const char* ApplicationLine() {
  return "TessaraAnimationConsole: Linux64 Application";
}

}  // namespace platform

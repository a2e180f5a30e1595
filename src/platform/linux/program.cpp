#include "platform/program.h"

#include <filesystem>
#include <fstream>
#include <iterator>
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
  std::ifstream file("/proc/self/cmdline", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

const char* ApplicationLine() {
  return "TessaraAnimationConsole: Linux64 Application";
}

}  // namespace platform

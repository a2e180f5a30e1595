// Takes the converter's place in tests. Appends to the file that TESSARA_RECORD names the exact
// command line it was given and the names in the folder that TESSARA_RECORD_FOLDER names, and ends
// with the exit code in TESSARA_RECORD_EXIT.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

const char* Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string recordPath = Variable("TESSARA_RECORD");
  if (recordPath.empty()) {
    return 0;
  }
  std::ofstream record(recordPath, std::ios::app | std::ios::binary);
#ifdef _WIN32
  static_cast<void>(argc);
  static_cast<void>(argv);
  record << "line:" << GetCommandLineA() << '\n';
#else
  for (int index = 0; index < argc; ++index) {
    record << "argument:" << argv[index] << '\n';
  }
#endif
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(Variable("TESSARA_RECORD_FOLDER"))) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) {
    record << "file:" << name << '\n';
  }
  return std::atoi(Variable("TESSARA_RECORD_EXIT"));
}

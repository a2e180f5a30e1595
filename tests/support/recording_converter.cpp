// Takes the converter's place in tests. Appends to the file that TESSARA_RECORD names its command
// line, on Windows, and the names in the folder that TESSARA_RECORD_FOLDER names; always fails.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#ifdef _WIN32
#include <windows.h>
#endif

int main() {
  const char* const path = std::getenv("TESSARA_RECORD");
  if (path == nullptr) {
    return 0;
  }
  std::ofstream record(path, std::ios::app | std::ios::binary);
#ifdef _WIN32
  record << "line:" << GetCommandLineA() << '\n';
#endif
  for (const auto& entry :
       std::filesystem::directory_iterator(std::getenv("TESSARA_RECORD_FOLDER"))) {
    record << "file:" << entry.path().filename().string() << '\n';
  }
  return 3;
}

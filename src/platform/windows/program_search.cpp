#include "platform/program_search.h"

#include <algorithm>
#include <string>

#include "platform/file_status.h"
#include "platform/windows/filled_text.h"
#include "platform/windows/utf8.h"

namespace platform {
namespace fs = std::filesystem;

fs::path ProgramFolder() {
  return fs::path(FilledText<wchar_t>([](wchar_t* text, DWORD size) {
           return GetModuleFileNameW(nullptr, text, size);
         }))
      .parent_path();
}

fs::path PathVariable(const char* name) {
  const std::wstring wide = WideFromUtf8(name);
  return FilledText<wchar_t>(
      [&](wchar_t* text, DWORD size) { return GetEnvironmentVariableW(wide.c_str(), text, size); });
}

std::vector<fs::path> ProgramSearchFolders() {
  std::vector<fs::path> folders;
  const std::wstring all = PathVariable("PATH").native();
  for (std::size_t at = 0; at <= all.size();) {
    const std::size_t end = std::min(all.find(L';', at), all.size());
    folders.emplace_back(all.substr(at, end - at));
    at = end + 1;
  }
  return folders;
}

bool IsProgram(const fs::path& path) {
  return QueryStatus(path).kind == FileKind::kFile;
}

}  // namespace platform

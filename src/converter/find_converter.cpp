#include "converter/find_converter.h"

#include <algorithm>
#include <string>
#include <utility>

#include "film/failure.h"
#include "film/quoted.h"
#include "platform/file_status.h"
#include "platform/program.h"
#include "platform/program_search.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FoldersToSearch() {
  std::vector<fs::path> folders = {platform::ProgramFolder()};
  if (const fs::path installation = platform::PathVariable("TESSARA_DIR"); !installation.empty()) {
    folders.push_back(installation / "TessaraPro64");
  }
  for (fs::path& folder : platform::ProgramSearchFolders()) {
    folders.push_back(std::move(folder));
  }
  return folders;
}

}  // namespace

std::vector<fs::path> FindConverters(const fs::path& wanted) {
  if (!wanted.empty()) {
    if (platform::QueryStatus(wanted).kind != platform::FileKind::kFile) {
      throw Failure("--converter: " + Quoted(wanted) + " is no file");
    }
    return {wanted};
  }
  const std::string name = platform::ExecutableFileName("ffmpeg");
  std::vector<fs::path> programs;
  for (const fs::path& folder : FoldersToSearch()) {
    fs::path program = platform::FullPath(folder / name);
    if (!folder.empty() && platform::IsProgram(program) &&
        std::find(programs.begin(), programs.end(), program) == programs.end()) {
      programs.push_back(std::move(program));
    }
  }
  if (programs.empty()) {
    throw Failure("no converter can be found: put " + name +
                  " beside this program or into PATH, or say with --converter where it is");
  }
  return programs;
}

}  // namespace animate

#include "animate/frame_search.h"

#include <optional>
#include <string>
#include <vector>

#include "animate/new_file.h"
#include "film/failure.h"
#include "film/quoted.h"
#include "platform/file_status.h"
#include "platform/file_system.h"

namespace animate {

namespace fs = std::filesystem;

FoundFrames FindFrames(const fs::path& meant) {
  const platform::FileKind kind = platform::QueryStatus(meant).kind;
  if (kind == platform::FileKind::kMissing) {
    throw Failure(Quoted(meant) + " cannot be found");
  }
  const bool isFolder = kind == platform::FileKind::kFolder;
  const fs::path folder = isFolder ? meant : meant.parent_path();
  std::vector<fs::path> names =
      OrFail(platform::ListFiles(folder), "the folder " + Quoted(folder) + " cannot be read");
  // Other runs may be at work in the same folder.
  std::erase_if(names, NewFile::IsName);
  try {
    return {folder, FindSequence(names, isFolder ? std::nullopt
                                                 : std::optional<fs::path>(meant.filename()))};
  } catch (const Failure& failure) {
    throw Failure("in " + Quoted(folder) + " " + failure.what());
  }
}

}  // namespace animate

#include "animate/frame_search.h"

#include <string>
#include <vector>

#include "animate/new_file.h"
#include "film/failure.h"
#include "film/quoted.h"
#include "platform/file_status.h"
#include "platform/file_system.h"
#include "sequence/name_pattern.h"
#include "sequence/selection.h"

namespace animate {

namespace fs = std::filesystem;

FoundFrames FindFrames(const Options& options) {
  const fs::path& meant = options.frames;
  const platform::FileKind kind = platform::QueryStatus(meant).kind;
  const bool isFolder = kind == platform::FileKind::kFolder;
  const fs::path folder = isFolder ? meant : meant.parent_path();
  const std::string last = platform::TextOfPath(meant.filename());
  SequenceOptions how = {.numbers = options.numbers, .join = options.join};
  if (kind == platform::FileKind::kMissing) {
    if (!IsNamePattern(last)) {
      throw Failure(Quoted(meant) + " cannot be found");
    }
    how.pattern = last;
  } else if (!isFolder) {
    how.wanted = meant.filename();
  }
  std::vector<fs::path> names =
      OrFail(platform::ListFiles(folder), "the folder " + Quoted(folder) + " cannot be read");
  // Other runs may be at work in the same folder.
  std::erase_if(names, NewFile::IsName);
  try {
    Findings findings = FindSequence(names, how);
    const std::string name = platform::TextOfPath(folder.filename());
    const std::string ownName = isFolder || name.empty() ? name : name + "_" + findings.name;
    return {folder, std::move(findings), ownName};
  } catch (const Failure& failure) {
    throw Failure("in " + Quoted(folder) + " " + failure.what());
  }
}

}  // namespace animate

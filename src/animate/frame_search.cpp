#include "animate/frame_search.h"

#include <algorithm>
#include <string>
#include <vector>

#include "animate/new_file.h"
#include "film/failure.h"
#include "film/quoted.h"
#include "platform/file_status.h"
#include "platform/file_system.h"
#include "sequence/name_pattern.h"
#include "sequence/range.h"
#include "sequence/selection.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

// Throws a Failure that names what of the expected numbers no frame has.
void CheckExpected(const Findings& findings, const Range& expected) {
  constexpr std::size_t kMostNamed = 8;
  const std::vector<MissingNumbers> missing = FindMissing(findings, expected);
  std::string text;
  for (std::size_t index = 0; index < std::min(missing.size(), kMostNamed); ++index) {
    const MissingNumbers& run = missing[index];
    text += (index == 0 ? "" : ", ") + (run.count == 1 ? run.first : run.first + " to " + run.last);
  }
  if (!missing.empty()) {
    throw Failure("numbers are missing that --expect asks for: " + text +
                  (missing.size() > kMostNamed ? " and more" : ""));
  }
}

// Keeps the frames that the options ask for.
void KeepChosen(const Options& options, Findings& findings) {
  if (options.only) {
    KeepRange(findings, *options.only);
  }
  if (options.every > 1) {
    std::size_t index = 0;
    std::erase_if(findings.frames, [&](const FoundFrame&) { return index++ % options.every != 0; });
    FindGaps(findings);
  }
  if (findings.frames.size() < 2) {
    throw Failure("fewer than two frames are left by --only and --every");
  }
}

}  // namespace

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
    if (options.expect) {
      CheckExpected(findings, *options.expect);
    }
    KeepChosen(options, findings);
    const std::string name = platform::TextOfPath(folder.filename());
    const std::string ownName = isFolder || name.empty() ? name : name + "_" + findings.name;
    return {folder, std::move(findings), ownName};
  } catch (const Failure& failure) {
    throw Failure("in " + Quoted(folder) + " " + failure.what(), failure.Status());
  }
}

}  // namespace animate

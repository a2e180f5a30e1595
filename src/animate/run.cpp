#include "animate/run.h"

#include <cstdio>

#include "animate/failure.h"
#include "animate/report.h"
#include "animate/sequence.h"
#include "platform/file_system.h"
#include "platform/user.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

struct FoundFrames {
  fs::path folder;
  Findings findings;
};

FoundFrames FindFrames(const fs::path& meant) {
  const platform::FileKind kind = platform::QueryStatus(meant).kind;
  if (kind == platform::FileKind::kMissing) {
    throw Failure("\"" + platform::TextOfPath(meant) + "\" cannot be found");
  }
  const bool isFolder = kind == platform::FileKind::kFolder;
  const fs::path folder = isFolder ? meant : meant.parent_path();
  const auto names = platform::ListFiles(folder);
  if (!names) {
    throw Failure("the folder \"" + platform::TextOfPath(folder) + "\" cannot be read");
  }
  try {
    return {folder, FindSequence(*names, isFolder ? std::nullopt
                                                  : std::optional<fs::path>(meant.filename()))};
  } catch (const Failure& failure) {
    throw Failure("in \"" + platform::TextOfPath(folder) + "\" " + failure.what());
  }
}

void PrintList(const FoundFrames& frames) {
  for (const NumberedName& frame : frames.findings.sequence) {
    std::puts(platform::TextOfPath(frames.folder / frame.name).c_str());
  }
}

}  // namespace

void StopIfInterrupted() {
  if (platform::IsInterrupted()) {
    throw Failure("interrupted", ExitStatus::kInterrupted);
  }
}

void Run(const Options& options) {
  const FoundFrames frames = FindFrames(options.frames);
  if (!options.quiet) {
    PrintFindings(frames.findings);
  }
  if (options.list) {
    PrintList(frames);
    return;
  }
}

}  // namespace animate

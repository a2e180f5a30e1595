#include "animate/run.h"

#include <cstdio>

#include "animate/converter.h"
#include "animate/failure.h"
#include "animate/new_file.h"
#include "animate/plan.h"
#include "animate/proof.h"
#include "animate/report.h"
#include "animate/rescue.h"
#include "animate/sequence.h"
#include "animate/staging.h"
#include "animate/without_converter.h"
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
  auto names = platform::ListFiles(folder);
  if (!names) {
    throw Failure("the folder \"" + platform::TextOfPath(folder) + "\" cannot be read");
  }
  // Other runs may be at work in the same folder.
  std::erase_if(*names, NewFile::IsName);
  try {
    return {folder, FindSequence(*names, isFolder ? std::nullopt
                                                  : std::optional<fs::path>(meant.filename()))};
  } catch (const Failure& failure) {
    throw Failure("in \"" + platform::TextOfPath(folder) + "\" " + failure.what());
  }
}

void PrintList(const FoundFrames& frames, bool fillGaps) {
  for (const std::size_t index : ShownFrames(frames.findings, fillGaps)) {
    const fs::path path = frames.folder / frames.findings.sequence[index].name;
    std::fputs((platform::TextOfPath(path) + "\n").c_str(), stdout);
  }
}

std::string ShownSize(Size size) {
  return std::to_string(size.width) + "x" + std::to_string(size.height);
}

void PrintPlan(const Plan& plan) {
  const std::size_t held = plan.shown.size() - plan.frames.size();
  PrintNote("making: " + platform::TextOfPath(plan.output) + ", " +
            std::to_string(plan.shown.size()) + " frames" +
            (held == 0 ? "" : " (" + std::to_string(held) + " of them held)") + " at " +
            plan.rateText + " frames a second, " + ShownSize(plan.size));
  if (plan.hasSeveralSizes) {
    PrintNote("sizes: the frames have several; all are brought to " + ShownSize(plan.size) +
              " with their shape kept");
  }
}

void PrintResult(const Plan& plan, const Proven& proven, std::uint64_t bytes) {
  char length[32];
  std::snprintf(&length[0], sizeof(length), "%.1f s", proven.length);
  std::printf("%s: %zu frames, %s at %s frames a second, %s, %s\n",
              platform::TextOfPath(plan.output.filename()).c_str(), proven.frames, &length[0],
              plan.rateText.c_str(), ShownSize(proven.size).c_str(), ShownBytes(bytes).c_str());
}

void DeleteFrames(const Plan& plan) {
  std::size_t kept = 0;
  for (const PlannedFrame& frame : plan.frames) {
    // One that was changed meanwhile is not the one in the animation.
    const bool isSame = platform::QueryStatus(frame.path) == frame.status;
    kept += isSame && platform::DeleteOneFile(frame.path) ? 0 : 1;
  }
  if (kept != 0) {
    PrintNote("not deleted: " + std::to_string(kept) +
              " frames, which cannot be deleted or were changed meanwhile");
  }
}

Proven MakeWithConverter(const Plan& plan, const Options& options, const NewFile& animation,
                         const NewFile* contactSheet) {
  const Converter converter(options.converter);
  const Staging staging(plan);
  {
    ProgressLine line(plan.shown.size(), options.quiet);
    MakeAnimation(converter, plan, staging, animation.Path(),
                  [&](std::size_t done) { line.Show(done); });
  }
  if (contactSheet != nullptr) {
    MakeContactSheet(converter, plan, staging, contactSheet->Path());
  }
  try {
    return Prove(converter, plan, animation.Path(), staging.Folder());
  } catch (const Failure& failure) {
    StopIfInterrupted();
    FailForFrames(converter, plan, staging, failure.what());
  }
}

}  // namespace

void StopIfInterrupted() {
  if (platform::IsInterrupted()) {
    throw Failure("interrupted", ExitStatus::kInterrupted);
  }
}

void Run(const Options& options) {
  if (!options.rescue.empty()) {
    Rescue(options.rescue, options.quiet);
    return;
  }
  const FoundFrames frames = FindFrames(options.frames);
  if (!options.quiet) {
    PrintFindings(frames.findings);
  }
  if (options.list) {
    PrintList(frames, options.fillGaps);
    return;
  }
  const Plan plan = MakePlan(options, frames.folder, frames.findings);
  if (!options.quiet) {
    PrintPlan(plan);
  }
  NewFile animation(plan.output);
  std::optional<NewFile> contactSheet;
  if (!plan.contactSheet.empty()) {
    contactSheet.emplace(plan.contactSheet);
  }
  const Proven proven =
      options.withoutConverter
          ? MakeWithoutConverter(plan, animation.Path())
          : MakeWithConverter(plan, options, animation, contactSheet ? &*contactSheet : nullptr);
  StopIfInterrupted();
  animation.PutInPlace(plan.replace);
  if (contactSheet) {
    contactSheet->PutInPlace(plan.replace);
  }
  if (options.deleteFrames) {
    DeleteFrames(plan);
  }
  if (!options.quiet) {
    PrintResult(plan, proven, platform::QueryStatus(plan.output).size);
  }
}

}  // namespace animate

#include "animate/run.h"

#include <optional>

#include "animate/frame_search.h"
#include "animate/merge_gifs.h"
#include "animate/new_file.h"
#include "animate/plan.h"
#include "animate/report.h"
#include "animate/rescue.h"
#include "animate/uncompressed_avi.h"
#include "animate/with_converter.h"
#include "film/interruption.h"
#include "platform/file_system.h"

namespace animate {
namespace {

void DeleteFrames(const std::vector<Frame>& frames) {
  std::size_t kept = 0;
  for (const Frame& frame : frames) {
    // One that was changed meanwhile is not the one in the animation.
    const bool isSame = platform::QueryStatus(frame.path) == frame.status;
    kept += isSame && platform::DeleteOneFile(frame.path) ? 0 : 1;
  }
  if (kept != 0) {
    PrintNote("not deleted: " + std::to_string(kept) +
              " frames, which cannot be deleted or were changed meanwhile");
  }
}

Measurement Make(const Plan& plan, const Options& options, const NewFile& animation,
                 const std::optional<NewFile>& sheet) {
  switch (plan.way) {
    case Way::kMergedGifs:
      return MergeGifs(plan.film, animation.Path());
    case Way::kUncompressedAvi:
      return MakeUncompressedAvi(plan.film, animation.Path());
    case Way::kConverter:
      break;
  }
  return MakeWithConverter(plan, animation.Path(), sheet ? sheet->Path() : "", options.converter,
                           options.quiet);
}

void MakeAnimation(const Plan& plan, const Options& options) {
  NewFile animation(plan.output);
  std::optional<NewFile> sheet;
  if (!plan.contactSheet.empty()) {
    sheet.emplace(plan.contactSheet);
  }
  const Measurement measured = Make(plan, options, animation, sheet);
  StopIfInterrupted();
  animation.PutInPlace(plan.replace);
  if (sheet) {
    sheet->PutInPlace(plan.replace);
  }
  if (options.deleteFrames) {
    DeleteFrames(plan.film.frames);
  }
  if (!options.quiet) {
    PrintResult(plan, measured, platform::QueryStatus(plan.output).size);
  }
}

}  // namespace

void Run(const Options& options) {
  if (!options.rescue.empty()) {
    Rescue(options.rescue, options.quiet);
    return;
  }
  const FoundFrames found = FindFrames(options);
  const Findings& findings = found.findings;
  if (!options.quiet) {
    PrintFindings(findings);
  }
  if (options.list) {
    PrintList(found.folder, findings.frames, ShownFrames(findings, options.fillGaps));
    return;
  }
  const Plan plan = MakePlan(options, found);
  if (!options.quiet) {
    PrintPlan(plan);
  }
  MakeAnimation(plan, options);
}

}  // namespace animate

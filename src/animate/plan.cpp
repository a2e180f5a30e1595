#include "animate/plan.h"

#include <algorithm>

#include "animate/failure.h"
#include "animate/picture.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

// Weeks of animation; more comes of a number that does not count frames.
constexpr std::size_t kMostFrames = 10'000'000;

// OUTPUT, or else beside the frames' folder.
fs::path ChooseOutput(const Options& options, const fs::path& folder) {
  if (!options.output.empty()) {
    return options.output;
  }
  if (!folder.has_filename()) {
    throw Failure("OUTPUT is missing, and the folder has no name to make one of",
                  ExitStatus::kWrongUse);
  }
  fs::path output = folder;
  return output += "." + options.format->extension;
}

std::string Quoted(const fs::path& path) {
  return "\"" + platform::TextOfPath(path) + "\"";
}

// Whether something may be written to `path`; the same rules for the animation and for the sheet.
void CheckTarget(const fs::path& path, const Plan& plan) {
  const platform::FileStatus status = platform::QueryStatus(path);
  if (platform::QueryStatus(path.parent_path()).kind != platform::FileKind::kFolder) {
    throw Failure("the folder " + Quoted(path.parent_path()) + " cannot be found");
  }
  if (status.kind == platform::FileKind::kMissing) {
    return;
  }
  if (status.kind != platform::FileKind::kFile) {
    throw Failure(Quoted(path) + " is there and is no file");
  }
  if (std::any_of(plan.frames.begin(), plan.frames.end(), [&](const PlannedFrame& frame) {
        return frame.status.identity == status.identity;
      })) {
    throw Failure(Quoted(path) + " is one of the frames");
  }
  if (!plan.replace) {
    throw Failure(Quoted(path) + " exists already; --overwrite replaces it");
  }
}

int RaisedToEven(int side) {
  return side + side % 2;
}

Size AnimationSize(const Plan& plan, const Options& options) {
  Size size = options.size.value_or(plan.frameSize);
  if (plan.format->needsEvenSides) {
    size = {RaisedToEven(size.width), RaisedToEven(size.height)};
  }
  return size;
}

void LookAtFrames(Plan& plan) {
  for (PlannedFrame& frame : plan.frames) {
    StopIfInterrupted();
    const auto [size, status] = LookAtPicture(frame.path);
    frame.status = status;
    if (&frame == &plan.frames.front()) {
      plan.frameSize = size;
    }
    plan.hasSeveralSizes = plan.hasSeveralSizes || size != plan.frameSize;
  }
}

}  // namespace

std::vector<std::size_t> ShownFrames(const Findings& found, bool fillGaps) {
  std::vector<std::size_t> shown;
  auto gap = found.gaps.begin();
  for (std::size_t index = 0; index < found.sequence.size(); ++index) {
    shown.push_back(index);
    if (fillGaps && gap != found.gaps.end() && gap->after == index) {
      if (gap->count > kMostFrames - std::min(shown.size(), kMostFrames)) {
        throw Failure("--fill-gaps: too many numbers are missing after " +
                      Quoted(found.sequence[index].name));
      }
      shown.insert(shown.end(), gap->count, index);
      ++gap;
    }
  }
  return shown;
}

Plan MakePlan(const Options& options, const fs::path& folder, const Findings& found) {
  Plan plan;
  plan.output = ChooseOutput(options, folder);
  plan.format = options.format;
  plan.contactSheet = options.contactSheet;
  plan.replace = options.overwrite;
  plan.rateText = options.rateText;
  plan.rate = options.rate;
  plan.shown = ShownFrames(found, options.fillGaps);
  for (const NumberedName& frame : found.sequence) {
    plan.frames.push_back({folder / frame.name, {}});
  }
  const std::string& pattern = found.sequence.front().pattern;
  const std::string extension = pattern.substr(pattern.rfind('.') + 1);
  plan.frameExtension = extension == "tif" ? "tiff" : extension;
  LookAtFrames(plan);
  plan.size = AnimationSize(plan, options);
  CheckTarget(plan.output, plan);
  if (!plan.contactSheet.empty()) {
    CheckTarget(plan.contactSheet, plan);
  }
  return plan;
}

}  // namespace animate

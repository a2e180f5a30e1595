#include "animate/plan.h"

#include <algorithm>

#include "animate/uncompressed_avi.h"
#include "film/failure.h"
#include "film/image_type.h"
#include "film/interruption.h"
#include "film/quoted.h"
#include "picture/picture.h"
#include "text/number.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

// Weeks of animation; more comes of a number that does not count frames.
constexpr std::size_t kMostFrames = 10'000'000;

// OUTPUT, or else beside the frames' folder.
fs::path ChooseOutput(const Options& options, const FoundFrames& found) {
  if (!options.output.empty()) {
    return options.output;
  }
  if (!found.folder.has_filename()) {
    throw Failure("OUTPUT is missing, and the folder has no name to make one of",
                  ExitStatus::kWrongUse);
  }
  return found.folder.parent_path() /
         platform::PathFromText(found.name + "." + options.format->extension);
}

Way ChooseWay(const Options& options, const std::string& frameType) {
  if (!options.withoutConverter) {
    return Way::kConverter;
  }
  if (options.format->extension == "gif" && frameType == "gif") {
    return Way::kMergedGifs;
  }
  if (options.format->extension == "avi" && kHasUncompressedAvi) {
    return Way::kUncompressedAvi;
  }
  throw Failure(kHasUncompressedAvi
                    ? "--without-converter: only GIF frames can become a GIF, and any frames an AVI"
                    : "--without-converter: only GIF frames can become a GIF");
}

// Sequences that are joined may be of several types, of which the converter would read one.
void CheckTypes(const Findings& found) {
  for (const FoundFrame& frame : found.frames) {
    if (ImageType(frame.name) != found.extension) {
      throw Failure("--join: " + Quoted(found.frames.front().name) + " and " + Quoted(frame.name) +
                    " are of different types and cannot be in one animation");
    }
  }
}

// The frames of a film, and what looking at them has shown.
struct LookedAt {
  std::vector<Frame> frames;
  Size size;
  bool hasSeveralSizes = false;
};

LookedAt LookAtFrames(const fs::path& folder, const std::vector<FoundFrame>& frames) {
  LookedAt all;
  for (const FoundFrame& found : frames) {
    StopIfInterrupted();
    fs::path path = folder / found.name;
    const Picture picture = LookAtPicture(path);
    if (all.frames.empty()) {
      all.size = picture.size;
    }
    all.hasSeveralSizes = all.hasSeveralSizes || picture.size != all.size;
    all.frames.push_back({std::move(path), picture.status});
  }
  return all;
}

Size FilmSize(const Options& options, Size frameSize) {
  const Size size = options.size.value_or(frameSize);
  return options.format->needsEvenSides ? Size{RaisedToEven(size.width), RaisedToEven(size.height)}
                                        : size;
}

Film MakeFilm(const Options& options, const FoundFrames& found) {
  LookedAt looked = LookAtFrames(found.folder, found.findings.frames);
  return {.frames = std::move(looked.frames),
          .shown = ShownFrames(found.findings, options.fillGaps),
          .frameType = found.findings.extension,
          .frameSize = looked.size,
          .hasSeveralSizes = looked.hasSeveralSizes,
          .format = options.format,
          .rate = options.rate,
          .size = FilmSize(options, looked.size)};
}

// Throws a Failure when nothing may be written to `path`; the same rules for the animation and for
// the sheet.
void CheckTarget(const fs::path& path, const std::vector<Frame>& frames, bool replace) {
  if (platform::QueryStatus(path.parent_path()).kind != platform::FileKind::kFolder) {
    throw Failure("the folder " + Quoted(path.parent_path()) + " cannot be found");
  }
  const platform::FileStatus status = platform::QueryStatus(path);
  if (status.kind == platform::FileKind::kMissing) {
    return;
  }
  if (status.kind != platform::FileKind::kFile) {
    throw Failure(Quoted(path) + " is there and is no file");
  }
  if (std::any_of(frames.begin(), frames.end(),
                  [&](const Frame& frame) { return frame.status.identity == status.identity; })) {
    throw Failure(Quoted(path) + " is one of the frames");
  }
  if (!replace) {
    throw Failure(Quoted(path) + " exists already; --overwrite replaces it");
  }
}

}  // namespace

std::vector<std::size_t> ShownFrames(const Findings& found, bool fillGaps) {
  std::vector<std::size_t> shown;
  auto gap = found.gaps.begin();
  for (std::size_t index = 0; index < found.frames.size(); ++index) {
    shown.push_back(index);
    if (fillGaps && gap != found.gaps.end() && gap->after == index) {
      if (gap->count > kMostFrames - std::min(shown.size(), kMostFrames)) {
        throw Failure("--fill-gaps: too many numbers are missing after " +
                      Quoted(found.frames[index].name));
      }
      shown.insert(shown.end(), gap->count, index);
      ++gap;
    }
  }
  return shown;
}

Plan MakePlan(const Options& options, const FoundFrames& found) {
  CheckTypes(found.findings);
  fs::path output = ChooseOutput(options, found);
  const Way way = ChooseWay(options, found.findings.extension);
  Film film = MakeFilm(options, found);
  if (way != Way::kConverter && film.hasSeveralSizes) {
    throw Failure("--without-converter: the frames have several sizes and stay as they are");
  }
  CheckTarget(output, film.frames, options.overwrite);
  if (!options.contactSheet.empty()) {
    CheckTarget(options.contactSheet, film.frames, options.overwrite);
  }
  return {.film = std::move(film),
          .way = way,
          .output = std::move(output),
          .contactSheet = options.contactSheet,
          .replace = options.overwrite};
}

}  // namespace animate

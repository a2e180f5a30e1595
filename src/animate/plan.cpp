#include "animate/plan.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "animate/bad_frames.h"
#include "animate/uncompressed_avi.h"
#include "film/failure.h"
#include "film/image_type.h"
#include "film/interruption.h"
#include "film/quoted.h"
#include "picture/picture.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

// OUTPUT, or else a file in its folder or beside that of the frames.
fs::path ChooseOutput(const Options& options, const FoundFrames& found) {
  if (!options.output.empty()) {
    return options.output;
  }
  if (found.name.empty()) {
    RefuseUse("OUTPUT is missing, and there is no name to make one of");
  }
  const fs::path folder = !options.outputFolder.empty() ? options.outputFolder
                          : options.frameList           ? found.folder
                                                        : found.folder.parent_path();
  return folder / platform::PathFromText(found.name + "." + options.format->extension);
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

// Frames of a list, and of sequences that are joined, may be of several types, of which the
// converter would read one.
void CheckTypes(const Findings& found) {
  for (const FoundFrame& frame : found.frames) {
    if (ImageType(frame.name).empty()) {
      throw Failure(Quoted(frame.name) + " has no name of an image that is read");
    }
    if (ImageType(frame.name) != found.extension) {
      throw Failure(Quoted(found.frames.front().name) + " and " + Quoted(frame.name) +
                    " are of different types and cannot be in one animation");
    }
  }
}

// The frames of a film, and what looking at them has shown.
struct LookedAt {
  std::vector<Frame> frames;
  // Where each one that was found is among the frames; one that is listed twice is there once.
  std::vector<std::size_t> places;
  std::vector<BadFrame> bad;
  // As wide as the widest of the good ones and as high as the highest, as they are seen.
  Size canvas;
  bool hasSeveralSizes = false;
  bool isDeep = false;
  // Those whose files hold more pictures after the first.
  std::vector<std::size_t> withMore;
  Transparency transparency = Transparency::kNone;
};

Size SeenSize(const PictureFacts& facts) {
  return IsSideways(facts.turn) ? Size{facts.size.height, facts.size.width} : facts.size;
}

LookedAt LookAtFrames(const fs::path& folder, const std::vector<FoundFrame>& found) {
  LookedAt all;
  std::unordered_map<fs::path::string_type, std::size_t> known;
  for (const FoundFrame& one : found) {
    StopIfInterrupted();
    fs::path path = folder / one.name;
    const auto [place, isNew] = known.try_emplace(path.native(), all.frames.size());
    all.places.push_back(place->second);
    if (!isNew) {
      continue;
    }
    const platform::Result<Picture> picture = LookAtPicture(path);
    if (!picture) {
      all.bad.push_back({all.frames.size(), picture.Reason()});
      all.frames.push_back({.path = std::move(path), .status = {}});
      continue;
    }
    const Size seen = SeenSize(picture->facts);
    const bool isFirst = all.frames.size() == all.bad.size();
    all.hasSeveralSizes = all.hasSeveralSizes || (!isFirst && seen != all.canvas);
    all.canvas = {std::max(all.canvas.width, seen.width), std::max(all.canvas.height, seen.height)};
    all.transparency = std::max(all.transparency, picture->facts.transparency);
    all.isDeep = all.isDeep || picture->facts.isDeep;
    if (picture->facts.hasMore) {
      all.withMore.push_back(all.frames.size());
    }
    all.frames.push_back(
        {std::move(path), picture->facts.turn, picture->facts.turnAt, picture->status});
  }
  return all;
}

// The canvas, or the size that is asked for, of which one side may be left to the shape.
Size PlannedSize(const Options& options, Size canvas) {
  const Size wanted = options.size.value_or(canvas);
  const auto other = [](int side, int own, int length) {
    return std::max(1, static_cast<int>(std::lround(static_cast<double>(length) * side / own)));
  };
  return {wanted.width != 0 ? wanted.width : other(wanted.height, canvas.height, canvas.width),
          wanted.height != 0 ? wanted.height : other(wanted.width, canvas.width, canvas.height)};
}

Film::FreePixels FreePixelsOf(const Options& options, Transparency transparency) {
  if (transparency == Transparency::kNone) {
    return Film::FreePixels::kNone;
  }
  return transparency <= options.format->transparency && !options.background
             ? Film::FreePixels::kKept
             : Film::FreePixels::kLaid;
}

// The levels that are given; those that are to be measured are not known yet.
std::optional<Levels> LevelsOf(const Options& options, bool isDeep) {
  const std::uint32_t most = isDeep ? 0xFFFF : 0xFF;
  if (options.levels && options.levels->high > most) {
    throw Failure("--levels: the frames have values up to " + std::to_string(most));
  }
  return options.levels;
}

// With a limit on the bytes the best that fits is wanted.
int QualityOf(const Options& options) {
  constexpr int kUsual = 80;
  constexpr int kBest = 100;
  return options.quality.value_or(options.maxBytes ? kBest : kUsual);
}

Film MakeFilm(const Options& options, const Findings& found, const Timing& timing,
              LookedAt&& looked) {
  std::vector<std::size_t> shown;
  for (const std::size_t index : timing.shown) {
    shown.push_back(looked.places[index]);
  }
  Film film = {.frames = std::move(looked.frames),
               .shown = std::move(shown),
               .frameType = found.extension,
               .canvas = looked.canvas,
               .hasSeveralSizes = looked.hasSeveralSizes,
               .isDeep = looked.isDeep,
               .levels = LevelsOf(options, looked.isDeep),
               .freePixels = FreePixelsOf(options, looked.transparency),
               .background = options.background.value_or(Colour()),
               .format = options.format,
               .quality = QualityOf(options),
               .bitRate = {},
               .rate = options.rate,
               .planned = {},
               .size = {}};
  SetPlanned(film, PlannedSize(options, film.canvas));
  return film;
}

// Throws a Failure when frames cannot be shown as they are in files that are made without the
// converter.
void CheckWay(Way way, const Film& film) {
  const auto isTurned = [](const Frame& frame) { return frame.turn != Turn::kNone; };
  if (way != Way::kConverter && film.hasSeveralSizes) {
    throw Failure("--without-converter: the frames have several sizes and stay as they are");
  }
  if (way == Way::kUncompressedAvi && film.freePixels != Film::FreePixels::kNone) {
    throw Failure("--without-converter: the frames have transparency, which an AVI has not");
  }
  if (way == Way::kUncompressedAvi &&
      std::any_of(film.frames.begin(), film.frames.end(), isTurned)) {
    throw Failure("--without-converter: the frames are turned (EXIF) and stay as they are");
  }
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

Plan MakePlan(const Options& options, const FoundFrames& found, const Timing& timing) {
  CheckTypes(found.findings);
  fs::path output = ChooseOutput(options, found);
  const Way way = ChooseWay(options, found.findings.extension);
  LookedAt looked = LookAtFrames(found.folder, found.findings.frames);
  std::vector<BadFrame> bad = std::move(looked.bad);
  std::vector<std::size_t> withMore = std::move(looked.withMore);
  Film film = MakeFilm(options, found.findings, timing, std::move(looked));
  if (bad.size() == film.frames.size()) {
    throw BadFramesFailure(film, std::move(bad));
  }
  CheckWay(way, film);
  CheckTarget(output, film.frames, options.overwrite);
  if (!options.contactSheet.empty()) {
    CheckTarget(options.contactSheet, film.frames, options.overwrite);
  }
  return {.film = std::move(film),
          .way = way,
          .output = std::move(output),
          .contactSheet = options.contactSheet,
          .replace = options.overwrite,
          .bad = std::move(bad),
          .withMore = std::move(withMore)};
}

}  // namespace animate

#include "animate/converter.h"

#include <algorithm>

#include "animate/failure.h"
#include "animate/picture.h"
#include "platform/program.h"
#include "platform/watched_process.h"

namespace animate {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

fs::path FindConverter(const fs::path& wanted) {
  if (!wanted.empty()) {
    if (platform::QueryStatus(wanted).kind != platform::FileKind::kFile) {
      throw Failure("--converter: \"" + platform::TextOfPath(wanted) + "\" is no file");
    }
    return wanted;
  }
  std::vector<fs::path> folders = {platform::ProgramFolder()};
  if (const fs::path installation = platform::PathVariable("TESSARA_DIR"); !installation.empty()) {
    folders.push_back(installation / "TessaraPro64");
  }
  for (fs::path& folder : platform::ProgramSearchFolders()) {
    folders.push_back(std::move(folder));
  }
  const std::string name = platform::ExecutableFileName("ffmpeg");
  for (const fs::path& folder : folders) {
    fs::path program = platform::FullPath(folder / name);
    if (!folder.empty() && platform::QueryStatus(program).kind == platform::FileKind::kFile) {
      return program;
    }
  }
  throw Failure("no converter can be found: put " + name +
                " beside this program or into PATH, or say with --converter where it is");
}

// Whether a line of the converter's list of encoders is about the one for `codec`.
bool IsEncoder(const std::string& line, const std::string& codec) {
  return line.find(" " + codec + " ") != std::string::npos ||
         line.find("(codec " + codec + ")") != std::string::npos;
}

Words Joined(Words words, const Words& more) {
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

// How the frames are read. Without the first option the converter would build its filters anew at a
// frame with other properties, and forget the colours gathered so far.
Words InputWords(const Plan& plan, const std::string& pattern, std::size_t first = 1) {
  Words words = {"-reinit_filter", "0", "-f", "image2"};
  if (plan.frameExtension == "gif") {
    words = Joined(words, {"-c:v", "gif"});
  }
  return Joined(
      words, {"-framerate", plan.rateText, "-start_number", std::to_string(first), "-i", pattern});
}

// The filter that brings frames to a size, their shape kept when they have several.
std::string SizeFilter(const Plan& plan, Size size) {
  const std::string width = std::to_string(size.width);
  const std::string height = std::to_string(size.height);
  const std::string scale = "scale=" + width + ":" + height;
  return plan.hasSeveralSizes ? scale + ":force_original_aspect_ratio=decrease,pad=" + width + ":" +
                                    height + ":(ow-iw)/2:(oh-ih)/2:eval=frame,setsar=1"
                              : scale;
}

Words OutputWords(const Plan& plan, const fs::path& target) {
  Words words = Joined({"-c:v", plan.format->codec}, plan.format->parameters);
  return Joined(words, {"-f", plan.format->muxer, platform::ArgumentOfPath(target)});
}

// Whether `count` frames from the one with the number `first` on are decoded without an error. With
// one thread the converter does not look at frames after them.
bool AreGood(const Converter& converter, const Plan& plan, const Staging& staging,
             std::size_t first, std::size_t count) {
  const ConverterResult result =
      converter.Run(Joined(Joined({"-threads", "1"}, InputWords(plan, staging.Pattern(), first)),
                           {"-frames:v", std::to_string(count), "-f", "null", "-"}),
                    staging.Folder());
  return result.failure.empty() && result.frames == count;
}

}  // namespace

Converter::Converter(const fs::path& wanted) : program_(FindConverter(wanted)) {}

void Converter::CheckEncoder(const Format& format) const {
  bool hasEncoder = false;
  const ConverterResult result = Run(
      {"-encoders"}, platform::ProgramFolder(),
      [&](const std::string& line) { hasEncoder = hasEncoder || IsEncoder(line, format.codec); });
  if (result.failure.empty() && !hasEncoder) {
    throw Failure("the converter \"" + platform::TextOfPath(program_) + "\" cannot make a " +
                  format.extension + " file: it has no encoder for " + format.codec);
  }
}

ConverterResult Converter::Run(const Words& arguments, const fs::path& folder,
                               const std::function<void(const std::string&)>& outputLine,
                               const std::function<void(std::size_t)>& progress) const {
  ConverterResult result;
  std::string firstError;
  Words all = {"-hide_banner", "-nostdin", "-v", "error", "-y"};
  if (!outputLine) {
    all = Joined(all, {"-progress", "pipe:1"});
  }
  all = Joined(all, arguments);
  const platform::ProcessEnd end = platform::RunWatched(
      program_, all, folder,
      [&](const std::string& line) {
        constexpr char kFrames[] = "frame=";
        if (outputLine) {
          outputLine(line);
        } else if (line.rfind(&kFrames[0], 0) == 0) {
          result.frames = std::strtoull(line.c_str() + sizeof(kFrames) - 1, nullptr, 10);
          if (progress) {
            progress(result.frames);
          }
        }
      },
      [&](const std::string& line) {
        if (firstError.empty()) {
          firstError = line;
        }
      });
  if (end.interrupted) {
    StopIfInterrupted();
  }
  const std::string name = "the converter \"" + platform::TextOfPath(program_) + "\" ";
  if (!end.startFailure.empty()) {
    throw Failure(name + "cannot be started: " + end.startFailure);
  }
  if (!end.failure.empty() || !firstError.empty()) {
    result.failure = name + (end.failure.empty() ? "failed" : "ended with " + end.failure) +
                     (firstError.empty() ? "" : ": " + firstError);
  }
  return result;
}

void MakeAnimation(const Converter& converter, const Plan& plan, const Staging& staging,
                   const fs::path& target, const std::function<void(std::size_t)>& progress) {
  const auto run = [&](const Words& words) {
    const ConverterResult result = converter.Run(words, staging.Folder(), nullptr, progress);
    if (!result.failure.empty()) {
      converter.CheckEncoder(*plan.format);
      FailForFrames(converter, plan, staging, result.failure);
    }
  };
  const Words input = InputWords(plan, staging.Pattern());
  const std::string size = SizeFilter(plan, plan.size);
  if (!plan.format->hasPalette) {
    run(Joined(Joined(input, {"-vf", size}), OutputWords(plan, target)));
    return;
  }
  const std::string palette = "palette.png";
  run(Joined(input, {"-vf", size + ",palettegen", "-frames:v", "1", palette}));
  run(Joined(Joined(input, {"-i", palette, "-lavfi", "[0:v]" + size + "[x];[x][1:v]paletteuse"}),
             OutputWords(plan, target)));
}

void MakeContactSheet(const Converter& converter, const Plan& plan, const Staging& staging,
                      const fs::path& target) {
  constexpr int kCellWidth = 240;
  constexpr std::size_t kMostColumns = 8;
  Size cell = plan.frameSize;
  if (cell.width > kCellWidth) {
    const auto height = static_cast<long long>(cell.height) * kCellWidth / cell.width;
    cell = {kCellWidth, std::max(static_cast<int>(height), 1)};
  }
  const std::size_t count = Staging::SheetCount(plan);
  const std::size_t columns = std::min(count, kMostColumns);
  const std::size_t rows = (count + columns - 1) / columns;
  const std::string tile =
      ",tile=" + std::to_string(columns) + "x" + std::to_string(rows) + ":padding=4:margin=4";
  const ConverterResult result = converter.Run(
      Joined(InputWords(plan, staging.SheetPattern()),
             {"-vf", SizeFilter(plan, cell) + tile, "-frames:v", "1", "-pix_fmt", "rgb24", "-c:v",
              "png", "-f", "image2pipe", platform::ArgumentOfPath(target)}),
      staging.Folder());
  if (!result.failure.empty()) {
    FailForFrames(converter, plan, staging, result.failure);
  }
  LookAtPicture(target);
}

void FailForFrames(const Converter& converter, const Plan& plan, const Staging& staging,
                   const std::string& reason) {
  std::size_t first = 1;
  std::size_t count = plan.shown.size();
  if (AreGood(converter, plan, staging, first, count)) {
    throw Failure(reason);
  }
  // The first bad frame is among these: halves, until one is left.
  while (count > 1) {
    const std::size_t half = count / 2;
    if (AreGood(converter, plan, staging, first, half)) {
      first += half;
      count -= half;
    } else {
      count = half;
    }
  }
  // A converter that decodes nothing at all says nothing about the frames.
  const std::size_t other = first == 1 ? plan.shown.size() : 1;
  if (AreGood(converter, plan, staging, first, 1) || !AreGood(converter, plan, staging, other, 1)) {
    throw Failure(reason);
  }
  throw Failure("\"" + platform::TextOfPath(plan.frames[plan.shown[first - 1]].path.filename()) +
                "\" is damaged and cannot be decoded (" + reason + ")");
}

}  // namespace animate

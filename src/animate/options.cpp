#include "animate/options.h"

#include <cstdio>

#include "animate/help.h"
#include "animate/option_words.h"
#include "film/failure.h"
#include "film/quoted.h"
#include "platform/file_status.h"
#include "platform/paths.h"
#include "text/lower_case.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

constexpr char kExtensions[] = ".mp4 .mov .webm .gif .apng .avi .wmv .flv .swf";

std::string Extension(const fs::path& path) {
  const std::string extension = platform::TextOfPath(path.extension());
  return extension.empty() ? "" : extension.substr(1);
}

void CheckRate(const Options& options) {
  const auto refuse = [&](const char* how, double limit) {
    char text[32];
    std::snprintf(&text[0], sizeof(text), "%g", limit);
    RefuseUse("--rate: a " + options.format->extension + " file cannot play " + how + " than " +
              &text[0] + " frames a second");
  };
  if (options.rate.value > options.format->highestRate) {
    refuse("faster", options.format->highestRate);
  }
  if (options.rate.value < options.format->lowestRate) {
    refuse("slower", options.format->lowestRate);
  }
}

// Names like "f_%04d.png", which the converter knows.
bool HasNumberPattern(const std::string& name) {
  const std::size_t sign = name.find('%');
  const std::size_t end = name.find_first_not_of("0123456789", sign + 1);
  return sign != std::string::npos && end != std::string::npos && name[end] == 'd';
}

const Format* ReadFormat(const std::string& text) {
  const Format* const format = FindFormat(text.substr(text.starts_with('.') ? 1 : 0));
  if (format == nullptr) {
    RefuseUse("--format: " + Quoted(text) + " is none of the formats: " + &kExtensions[0]);
  }
  return format;
}

void TakeOutput(const std::string& text, bool hasFormat, Options& options) {
  const fs::path path = ReadPath(text, "OUTPUT");
  const std::string name = Quoted(path.filename());
  if (platform::QueryStatus(path).kind == platform::FileKind::kFolder) {
    options.outputFolder = path;
    return;
  }
  if (options.each) {
    RefuseUse("OUTPUT: " + name + " is no folder, which --each needs for its animations");
  }
  options.output = path;
  if (HasNumberPattern(text)) {
    RefuseUse("OUTPUT: " + name +
              " is a pattern for frames; OUTPUT is the one animation that is made, like out.mp4");
  }
  if (hasFormat) {
    RefuseUse("--format is for an OUTPUT that is missing or a folder that is there; " + name +
              " is neither");
  }
  options.format = FindFormat(Extension(path));
  if (options.format == nullptr) {
    RefuseUse("OUTPUT: " + name + " does not end like one of the formats: " + &kExtensions[0]);
  }
}

void TakePaths(const OptionWords& words, Options& options) {
  std::vector<std::string> paths = words.Paths();
  const std::size_t most = options.frameList ? 1 : 2;
  if (!options.rescue.empty()) {
    if (!paths.empty()) {
      RefuseUse("--rescue takes its folder alone, without FRAMES");
    }
    return;
  }
  if (paths.size() > most) {
    RefuseUse(
        options.frameList
            ? "with --from-list there are no FRAMES, only OUTPUT is expected"
            : "there are " + std::to_string(paths.size()) +
                  " paths, but only FRAMES and OUTPUT are expected; when a shell has expanded a pattern like *.png, put it between quotation marks, or give the folder or one frame instead");
  }
  if (!options.frameList) {
    if (paths.empty()) {
      RefuseUse("FRAMES is missing; --help says more");
    }
    options.frames = ReadPath(paths.front(), "FRAMES");
    paths.erase(paths.begin());
  }
  if (const auto format = words.Value("--format")) {
    options.format = ReadFormat(*format);
  }
  if (!paths.empty()) {
    TakeOutput(paths.front(), words.Has("--format"), options);
  }
  CheckRate(options);
}

// How the command line chooses frames.
void TakeChoice(const OptionWords& words, Options& options) {
  if (const auto list = words.Value("--from-list")) {
    options.frameList = *list == "-" ? fs::path() : ReadPath(*list, "--from-list");
  }
  if (const auto numbers = words.Value("--numbers")) {
    options.numbers = ReadNumbers(*numbers);
  }
  if (const auto only = words.Value("--only")) {
    options.only = ReadRange(*only);
  }
  if (const auto every = words.Value("--every")) {
    options.every = ReadEvery(*every);
  }
  if (const auto expect = words.Value("--expect")) {
    options.expect = ReadRange(*expect);
  }
  if (const auto bad = words.Value("--bad")) {
    options.bad = ReadBadFrames(*bad);
  }
  options.join = words.Has("--join");
  options.each = words.Has("--each");
  options.list = words.Has("--list");
}

// What the animation is like.
void TakeShape(const OptionWords& words, Options& options) {
  if (const auto rate = words.Value("--rate")) {
    options.rate = ReadRate(*rate);
  }
  if (const auto speed = words.Value("--speed")) {
    options.speed = ReadSpeed(*speed);
  }
  if (const auto hold = words.Value("--hold")) {
    options.hold = ReadSeconds(*hold);
  }
  if (const auto size = words.Value("--size")) {
    options.size = ReadSize(*size);
  }
  if (const auto background = words.Value("--background")) {
    options.background = ReadColour(*background);
  }
  if (const auto quality = words.Value("--quality")) {
    options.quality = ReadQuality(*quality);
  }
  if (const auto levels = words.Value("--levels")) {
    options.levels = ReadLevels(*levels);
    options.hasAutoLevels = !options.levels;
  }
  if (const auto bytes = words.Value("--max-size")) {
    options.maxBytes = ReadBytes(*bytes);
  }
  options.fillGaps = words.Has("--fill-gaps");
}

// What is made, and how.
void TakeWork(const OptionWords& words, Options& options) {
  if (const auto sheet = words.Value("--contact-sheet")) {
    options.contactSheet = ReadPath(*sheet, "--contact-sheet");
    if (LowerCase(Extension(options.contactSheet)) != "png") {
      RefuseUse("--contact-sheet: " + Quoted(*sheet) + " does not end in .png");
    }
  }
  if (const auto converter = words.Value("--converter")) {
    options.converter = ReadPath(*converter, "--converter");
  }
  if (const auto threads = words.Value("--threads")) {
    options.threads = ReadThreads(*threads);
  }
  if (const auto rescue = words.Value("--rescue")) {
    options.rescue = ReadPath(*rescue, "--rescue");
  }
  options.overwrite = words.Has("--overwrite");
  options.withoutConverter = words.Has("--without-converter");
  options.deleteFrames = words.Has("--delete-frames");
  options.json = words.Has("--json");
  options.quiet = words.Has("--quiet");
}

// Options that have no meaning beside each other.
void CheckTogether(const OptionWords& words) {
  const struct {
    const char* option;
    const char* other;
    const char* why;
  } kExclusions[] = {
      {"--contact-sheet", "--without-converter", "the sheet needs the converter"},
      {"--size", "--without-converter", "another size needs the converter"},
      {"--quality", "--without-converter", "nothing is lost there"},
      {"--background", "--without-converter", "another ground needs the converter"},
      {"--levels", "--without-converter", "other colours need the converter"},
      {"--max-size", "--without-converter", "nothing is lost there"},
      {"--contact-sheet", "--each", "there is one sheet, and several animations"},
      {"--join", "--each", "one makes one animation of all parts, the other one of each"},
      {"--fill-gaps", "--speed", "by time each frame stands until the next one's anyway"},
      {"--from-list", "--each", "a list is one animation"},
      {"--from-list", "--only", "the frames of a list have no numbers"},
      {"--from-list", "--expect", "the frames of a list have no numbers"},
      {"--from-list", "--speed", "the frames of a list have no numbers"},
      {"--from-list", "--fill-gaps", "the frames of a list have no numbers"},
  };
  for (const auto& exclusion : kExclusions) {
    if (words.Has(exclusion.option) && words.Has(exclusion.other)) {
      RefuseUse(std::string(exclusion.option) + " and " + exclusion.other +
                " exclude each other: " + exclusion.why);
    }
  }
}

}  // namespace

Options ReadOptions(const std::vector<std::string>& arguments) {
  Options options;
  const OptionWords words(arguments);
  if (words.Has("--help") || words.Has("--version")) {
    options.textToShow = words.Has("--help") ? kHelp : "TessaraAnimate " TESSARA_VERSION "\n";
    return options;
  }
  CheckTogether(words);
  TakeChoice(words, options);
  TakeShape(words, options);
  TakeWork(words, options);
  TakePaths(words, options);
  return options;
}

}  // namespace animate

#include "animate/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "film/failure.h"
#include "film/quoted.h"
#include "platform/paths.h"
#include "text/lower_case.h"

namespace animate {
namespace {

constexpr double kHighestRate = 1000;
constexpr int kLargestSide = 16384;

constexpr char kHelp[] =
    R"(Makes one animation of a folder of numbered images. The images are only read.

Usage: TessaraAnimate [OPTIONS] FRAMES [OUTPUT]

  FRAMES   a folder of images, one image of the sequence or part that is meant, or a pattern for
           names in a folder, like "run/cam1_*.png"
  OUTPUT   the animation: .mp4 .mov .webm .gif .apng .avi .wmv .flv or .swf; when it is left out,
           the folder's name with .mp4, beside the folder

  -r, --rate N               frames a second, above 0 up to 1000, decimals allowed (16)
      --size WxH             picture size (the frames' own)
      --overwrite            replace an existing OUTPUT
      --list                 make nothing, print the frames in their order
      --only RANGE           the frames with these numbers: 100-500, 100-500x5, 100-, -500, 0.5-2
      --every N              each Nth of them, the first among them
      --expect RANGE         end with 1 and make nothing when one of these numbers is missing
      --fill-gaps            where numbers are missing, hold the frame before
      --numbers HOW          decimal or whole: what 1.9 and 1.11 are, where names do not tell
      --join                 parts, or equally large sequences, one after the other
      --contact-sheet FILE.png
                             also a sheet of up to 48 frames, to look at
      --without-converter    merge GIF frames into a GIF without encoding them again; on Windows
                             also any frames into an uncompressed AVI
      --converter PATH       the ffmpeg to use
      --delete-frames        delete the frames used once the animation is in place and proven
      --rescue FOLDER        make frames again of copies that TessaraAnimationConsole left behind
  -q, --quiet                print nothing but errors
  -h, --help                 print this
      --version              print the version

Exit status: 0 the animation is in place and proven, 1 it is not, 2 wrong use, 130 interrupted.
)";

[[noreturn]] void WrongUse(const std::string& what) {
  throw Failure(what, ExitStatus::kWrongUse);
}

Rate ReadRate(const std::string& text) {
  const std::size_t point = std::min(text.find('.'), text.size());
  const auto isDigits = [](const std::string& part) {
    return !part.empty() && part.find_first_not_of("0123456789") == std::string::npos;
  };
  const bool isDecimal =
      isDigits(text.substr(0, point)) && (point == text.size() || isDigits(text.substr(point + 1)));
  const double rate = isDecimal ? std::strtod(text.c_str(), nullptr) : 0;
  if (!(rate > 0 && rate <= kHighestRate)) {
    WrongUse("--rate: " + Quoted(text) + " is not a number above 0 up to 1000");
  }
  return {text, rate};
}

Size ReadSize(const std::string& text) {
  const auto read = [](const std::string& side) {
    const bool isNumber = !side.empty() && side.size() <= 5 &&
                          side.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? std::atoi(side.c_str()) : 0;
  };
  const std::size_t mark = std::min(text.find_first_of("xX"), text.size());
  const Size size = {read(text.substr(0, mark)),
                     mark == text.size() ? 0 : read(text.substr(mark + 1))};
  if (std::min(size.width, size.height) < 1 || std::max(size.width, size.height) > kLargestSide) {
    WrongUse("--size: " + Quoted(text) + " is not WIDTHxHEIGHT with each from 1 to 16384");
  }
  return size;
}

// The one path that a text of the command line names.
std::filesystem::path ReadPath(const std::string& text, const char* name) {
  if (text.empty()) {
    WrongUse(std::string(name) + " is empty");
  }
  return platform::FullPath(platform::PathFromText(text));
}

std::string Extension(const std::filesystem::path& path) {
  const std::string extension = platform::TextOfPath(path.extension());
  return extension.empty() ? "" : extension.substr(1);
}

void CheckRate(const Options& options) {
  const auto refuse = [&](const char* how, double limit) {
    char text[32];
    std::snprintf(&text[0], sizeof(text), "%g", limit);
    WrongUse("--rate: a " + options.format->extension + " file cannot play " + how + " than " +
             &text[0] + " frames a second");
  };
  if (options.rate.value > options.format->highestRate) {
    refuse("faster", options.format->highestRate);
  }
  if (options.rate.value < options.format->lowestRate) {
    refuse("slower", options.format->lowestRate);
  }
}

// The library's message as one line that begins like the others.
std::string OneLine(std::string message) {
  std::replace(message.begin(), message.end(), '\n', ' ');
  return message;
}

void TakePaths(const std::vector<std::string>& paths, Options& options) {
  if (paths.size() > 2) {
    WrongUse(
        "there are " + std::to_string(paths.size()) +
        " paths, but only FRAMES and OUTPUT are expected; when a shell has expanded a pattern like *.png, give the folder or one frame instead");
  }
  if (paths.empty()) {
    if (options.rescue.empty()) {
      WrongUse("FRAMES is missing; --help says more");
    }
    return;
  }
  if (!options.rescue.empty()) {
    WrongUse("--rescue takes its folder alone, without FRAMES");
  }
  options.frames = ReadPath(paths[0], "FRAMES");
  if (paths.size() == 2) {
    options.output = ReadPath(paths[1], "OUTPUT");
    options.format = FindFormat(Extension(options.output));
    if (options.format == nullptr) {
      WrongUse(
          "OUTPUT: " + Quoted(options.output.filename()) +
          " does not end like one of the formats: .mp4 .mov .webm .gif .apng .avi .wmv .flv .swf");
    }
    CheckRate(options);
  }
}

// The words of the command line that are read further.
struct Given {
  std::vector<std::string> paths;
  std::optional<std::string> numbers, only, every, expect, rate, size, contactSheet, converter,
      rescue;
  bool help = false;
  bool version = false;
};

// Sorts the words; flags go straight to the options.
Given Parse(const std::vector<std::string>& arguments, Options& options) {
  Given given;
  CLI::App app;
  app.allow_windows_style_options(false);
  app.set_help_flag();
  app.add_option("paths", given.paths);
  app.add_option("-r,--rate", given.rate);
  app.add_option("--size", given.size);
  app.add_option("--numbers", given.numbers);
  app.add_option("--only", given.only);
  app.add_option("--every", given.every);
  app.add_option("--expect", given.expect);
  app.add_option("--contact-sheet", given.contactSheet);
  app.add_option("--converter", given.converter);
  app.add_option("--rescue", given.rescue);
  app.add_flag("--overwrite", options.overwrite);
  app.add_flag("--list", options.list);
  app.add_flag("--fill-gaps", options.fillGaps);
  app.add_flag("--join", options.join);
  app.add_flag("--without-converter", options.withoutConverter);
  app.add_flag("--delete-frames", options.deleteFrames);
  app.add_flag("-q,--quiet", options.quiet);
  app.add_flag("-h,--help", given.help);
  app.add_flag("--version", given.version);
  try {
    // The library takes the words from the back.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ArgumentMismatch& error) {
    const std::string message = error.what();
    WrongUse(message.substr(0, message.find(':')) + " has to be given once, with one value");
  } catch (const CLI::ParseError& error) {
    WrongUse(OneLine(error.what()));
  }
  return given;
}

Numbers ReadNumbers(const std::string& text) {
  if (text != "decimal" && text != "whole") {
    WrongUse("--numbers: " + Quoted(text) + " is neither decimal nor whole");
  }
  return text == "decimal" ? Numbers::kDecimal : Numbers::kWhole;
}

std::size_t ReadEvery(const std::string& text) {
  constexpr std::size_t kMostDigits = 9;
  const bool isNumber = !text.empty() && text.size() <= kMostDigits &&
                        text.find_first_not_of("0123456789") == std::string::npos;
  const std::size_t every = isNumber ? std::strtoull(text.c_str(), nullptr, 10) : 0;
  if (every == 0) {
    WrongUse("--every: " + Quoted(text) + " is not a whole number from 1 on");
  }
  return every;
}

// How the command line chooses frames.
void TakeChoice(const Given& given, Options& options) {
  if (given.numbers) {
    options.numbers = ReadNumbers(*given.numbers);
  }
  if (given.only) {
    options.only = ReadRange(*given.only);
  }
  if (given.every) {
    options.every = ReadEvery(*given.every);
  }
  if (given.expect) {
    options.expect = ReadRange(*given.expect);
  }
}

std::filesystem::path ReadContactSheet(const std::string& text) {
  std::filesystem::path sheet = ReadPath(text, "--contact-sheet");
  if (LowerCase(Extension(sheet)) != "png") {
    WrongUse("--contact-sheet: " + Quoted(text) + " does not end in .png");
  }
  return sheet;
}

}  // namespace

Options ReadOptions(const std::vector<std::string>& arguments) {
  Options options;
  const Given given = Parse(arguments, options);
  if (given.help || given.version) {
    options.textToShow = given.help ? &kHelp[0] : "TessaraAnimate " TESSARA_VERSION "\n";
    return options;
  }
  if (given.rate) {
    options.rate = ReadRate(*given.rate);
  }
  TakeChoice(given, options);
  if (given.size) {
    options.size = ReadSize(*given.size);
  }
  if (given.contactSheet) {
    options.contactSheet = ReadContactSheet(*given.contactSheet);
  }
  if (given.converter) {
    options.converter = ReadPath(*given.converter, "--converter");
  }
  if (given.rescue) {
    options.rescue = ReadPath(*given.rescue, "--rescue");
  }
  TakePaths(given.paths, options);
  if (options.withoutConverter && !options.contactSheet.empty()) {
    WrongUse("--contact-sheet needs the converter");
  }
  if (options.withoutConverter && options.size) {
    WrongUse("--size needs the converter");
  }
  return options;
}

}  // namespace animate

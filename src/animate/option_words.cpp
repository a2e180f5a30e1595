#include "animate/option_words.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <numeric>

#include "film/failure.h"
#include "film/quoted.h"

namespace animate {
namespace {

struct Option {
  // As the library takes them: "-r,--rate".
  std::string names;
  bool hasValue = false;
  // What other programs and habit call it.
  std::vector<std::string> otherNames = {};

  std::string LongName() const { return names.substr(names.find("--")); }
};

const Option kOptions[] = {
    {"--list", false, {"--dry-run", "-n", "-l"}},
    {"--only", true, {"--range", "--frames"}},
    {"--every", true, {"--step", "--stride", "--nth"}},
    {"--expect", true},
    {"--numbers", true},
    {"--join", false, {"--concat", "--merge"}},
    {"--each", false, {"--all", "--separate"}},
    {"--from-list", true, {"--file-list", "--files", "--input", "-i"}},
    {"--bad", true, {"--skip-bad", "--ignore-errors", "--on-error"}},
    {"-r,--rate", true, {"--fps", "--framerate", "--frame-rate"}},
    {"--speed", true, {"--time-scale", "--duration"}},
    {"--hold", true, {"--pause", "--hold-last"}},
    {"--fill-gaps", false},
    {"--size", true, {"--resolution", "--scale", "--width", "-s"}},
    {"--background", true, {"--bg", "--color", "--colour"}},
    {"--levels", true, {"--contrast", "--normalize", "--normalise"}},
    {"--quality", true, {"--crf", "--bitrate"}},
    {"--max-size", true, {"--limit", "--filesize", "--file-size", "-fs"}},
    {"--format", true, {"--type", "--extension", "-f"}},
    {"--overwrite", false, {"--force", "-y"}},
    {"--contact-sheet", true, {"--montage", "--thumbnails"}},
    {"--without-converter", false, {"--no-converter"}},
    {"--converter", true, {"--ffmpeg"}},
    {"--threads", true, {"--jobs", "-j", "-t"}},
    {"--delete-frames", false, {"--delete", "--remove"}},
    {"--rescue", true},
    {"--json", false},
    {"-q,--quiet", false, {"--silent"}},
    {"-h,--help", false, {"-?"}},
    {"--version", false, {"-V", "-v"}},
};

// How many characters have to be changed, added or taken away to make one text the other.
std::size_t Distance(const std::string& from, const std::string& to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t taken = 1; taken <= from.size(); ++taken) {
    std::size_t before = row[0]++;
    for (std::size_t index = 1; index <= to.size(); ++index) {
      const std::size_t changed = before + (from[taken - 1] == to[index - 1] ? 0 : 1);
      before = row[index];
      row[index] = std::min({changed, row[index] + 1, row[index - 1] + 1});
    }
  }
  return row.back();
}

[[noreturn]] void RefuseWord(const std::string& word) {
  if (word == "-o" || word.starts_with("--out")) {
    RefuseUse("there is no option " + Quoted(word) + ": OUTPUT stands behind FRAMES by itself");
  }
  const std::string nearest = NearestOption(word);
  RefuseUse("there is no option " + Quoted(word) +
            (nearest.empty() ? "; --help lists them all" : "; is " + nearest + " meant?"));
}

// The library's message as one line that begins like the others.
std::string OneLine(std::string message) {
  std::replace(message.begin(), message.end(), '\n', ' ');
  return message;
}

}  // namespace

OptionWords::OptionWords(const std::vector<std::string>& arguments) {
  CLI::App app;
  app.allow_windows_style_options(false);
  app.set_help_flag();
  app.allow_extras();
  // One by one: of a list the library would take a folder's name like [old] apart.
  const CLI::Option* const frames = app.add_option("frames");
  const CLI::Option* const output = app.add_option("output");
  for (const Option& option : kOptions) {
    if (option.hasValue) {
      app.add_option(option.names);
    } else {
      app.add_flag(option.names);
    }
  }
  try {
    // The library takes the words from the back.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ArgumentMismatch& error) {
    const std::string message = error.what();
    RefuseUse(message.substr(0, message.find(':')) + " has to be given once, with one value");
  } catch (const CLI::ParseError& error) {
    RefuseUse(OneLine(error.what()));
  }
  std::vector<std::string> more = app.remaining();
  const auto end = std::find(more.begin(), more.end(), "--");
  const auto unknown = std::find_if(more.begin(), end, [](const std::string& word) {
    return word.starts_with('-') && word.size() > 1;
  });
  if (unknown != end) {
    RefuseWord(*unknown);
  }
  std::erase(more, "--");
  for (const CLI::Option* path : {frames, output}) {
    paths_.insert(paths_.end(), path->results().begin(), path->results().end());
  }
  paths_.insert(paths_.end(), more.begin(), more.end());
  for (const Option& option : kOptions) {
    const CLI::Option* const given = app.get_option(option.LongName());
    if (given->count() == 0) {
      continue;
    }
    if (!option.hasValue && given->results().front() != "true") {
      RefuseUse(option.LongName() + " takes no value");
    }
    values_[option.LongName()] = given->results().front();
  }
}

std::optional<std::string> OptionWords::Value(const std::string& option) const {
  const auto found = values_.find(option);
  return found == values_.end() ? std::nullopt : std::optional(found->second);
}

std::string NearestOption(const std::string& word) {
  const std::string name = word.substr(0, word.find('='));
  std::string nearest;
  std::size_t least = 3;
  for (const Option& option : kOptions) {
    const auto& others = option.otherNames;
    if (std::find(others.begin(), others.end(), name) != others.end()) {
      return option.LongName();
    }
    const std::size_t distance = Distance(name, option.LongName());
    // A short word is near to everything.
    if (distance < std::min(least, name.size() / 2)) {
      least = distance;
      nearest = option.LongName();
    }
  }
  return nearest;
}

}  // namespace animate

// What the user asks for.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "film/format.h"
#include "film/rate.h"
#include "film/size.h"
#include "sequence/range.h"
#include "sequence/reading.h"

namespace animate {

struct Options {
  // The folder of the frames, or one of them; from the root on, as all paths here are.
  std::filesystem::path frames;
  // Empty when it was left out.
  std::filesystem::path output;
  const Format* format = FindFormat("mp4");
  // These three are empty when they are not asked for.
  std::filesystem::path contactSheet;
  std::filesystem::path converter;
  std::filesystem::path rescue;
  // How numbers with a point or a comma between them are read, where the names do not tell.
  Numbers numbers = Numbers::kAuto;
  // Parts, and sequences that are equally large, one after the other.
  bool join = false;
  // The numbers whose frames are taken, and those that have to be there; nothing for no condition.
  std::optional<Range> only;
  std::optional<Range> expect;
  // Each how many-th of the frames is taken.
  std::size_t every = 1;
  Rate rate;
  // Nothing for the frames' own.
  std::optional<Size> size;
  bool overwrite = false;
  bool list = false;
  bool fillGaps = false;
  bool withoutConverter = false;
  bool deleteFrames = false;
  bool quiet = false;
  // A text that was asked for in place of a run: the help or the version.
  std::string textToShow;
};

// Reads the command line without the program's name. Throws a Failure of wrong use, whose one line
// says what is wrong.
Options ReadOptions(const std::vector<std::string>& arguments);

}  // namespace animate

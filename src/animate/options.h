// What the user asks for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "animate/option_values.h"
#include "film/format.h"
#include "film/levels.h"
#include "sequence/range.h"

namespace animate {

struct Options {
  // What FRAMES names: a folder, one of the frames, or a pattern; from the root on, as all paths
  // here are. Empty with a list of frames.
  std::filesystem::path frames;
  // The file that lists the frames; empty for standard input.
  std::optional<std::filesystem::path> frameList;
  // At most one of these is not empty: the animation, or the folder that it is put in.
  std::filesystem::path output;
  std::filesystem::path outputFolder;
  const Format* format = FindFormat("mp4");
  // These three are empty when they are not asked for.
  std::filesystem::path contactSheet;
  std::filesystem::path converter;
  std::filesystem::path rescue;
  // How numbers with a point or a comma between them are read, where the names do not tell.
  Numbers numbers = Numbers::kAuto;
  // Parts, and sequences that are equally large: one after the other, or an animation of each.
  bool join = false;
  bool each = false;
  // The numbers whose frames are taken, and those that have to be there; nothing for no condition.
  std::optional<Range> only;
  std::optional<Range> expect;
  // Each how many-th of the frames is taken.
  std::size_t every = 1;
  BadFrames bad = BadFrames::kRefuse;
  Rate rate;
  // How many units of the counter pass in a second; nothing when each frame stands for one tick.
  std::optional<Decimal> speed;
  // How much longer the last frame stands, in seconds.
  double hold = 0;
  // From 1 to 100; nothing for the usual one.
  std::optional<int> quality;
  // The largest that the animation may be.
  std::optional<std::uint64_t> maxBytes;
  // The values of colours that are spread; or those that the frames have are.
  std::optional<Levels> levels;
  bool hasAutoLevels = false;
  // Nothing for the frames' own; a side of 0 is left to their shape.
  std::optional<Size> size;
  // What transparent pixels are laid on; nothing where they may stay so.
  std::optional<Colour> background;
  // Of the converter; 0 for as many as it likes.
  int threads = 0;
  bool overwrite = false;
  bool list = false;
  bool fillGaps = false;
  bool withoutConverter = false;
  bool deleteFrames = false;
  bool json = false;
  bool quiet = false;
  // A text that was asked for in place of a run: the help or the version.
  std::string textToShow;
};

// Reads the command line without the program's name. Throws a Failure of wrong use, whose one line
// says what is wrong.
Options ReadOptions(const std::vector<std::string>& arguments);

}  // namespace animate

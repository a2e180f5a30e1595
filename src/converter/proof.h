// Proving that a finished file is the film that was planned.
#pragma once

#include <filesystem>
#include <future>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "converter/converter.h"
#include "converter/packets.h"
#include "converter/small_pictures.h"
#include "film/film.h"
#include "film/measurement.h"

namespace animate {

// What comes of reading a file once.
struct ReadBack {
  Packets packets;
  // The fingerprints of its pictures; empty where they were not asked for.
  std::string whole;
};

class Proof {
 public:
  // The converter is to read the file at `target` back, in `folder`, where the encoding leaves the
  // planned pictures.
  Proof(const Converter& converter, std::filesystem::path target, std::filesystem::path folder)
      : converter_(converter), target_(std::move(target)), folder_(std::move(folder)) {}

  // Starts the converter now: that takes as long as reading a small film does. It looks at the file
  // when Of is called. `everyPixel` says whether it may be that every pixel has to be in it. One
  // that was started before is given up.
  void Prepare(const Film& film, bool everyPixel);

  // Has the finished file read and its pictures compared with the planned ones. Throws a Failure
  // when there is any error in it, or its count of pictures, its length, their size or what they
  // show is not that of the film.
  Measurement Of(const Film& film);

 private:
  std::optional<ReadBack> Prepared();

  const Converter& converter_;
  std::filesystem::path target_;
  std::filesystem::path folder_;
  // Its end waits for the converter, so that must go on by then: the promise ends before it.
  std::future<ReadBack> readBack_;
  std::promise<void> isFinished_;
};

// What the converter was found to say of the file, without its pictures.
Measurement Measured(const Film& film, const Packets& packets);

// Which planned picture of a film, and which of those that are shown at `times` in the finished
// file, stand at the same time, in hundredths of a second; equal ones, one after the other, may be
// one in the file.
std::vector<Pair> PairsByTime(const Film& film, const std::vector<long long>& times);

}  // namespace animate

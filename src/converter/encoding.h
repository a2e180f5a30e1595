// Having the converter encode a film.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

#include "converter/converter.h"
#include "converter/staging.h"
#include "film/film.h"

namespace animate {

// The file in the staging folder that the small pictures of the planned film are put in.
inline constexpr char kPlannedPictures[] = "planned.rgb";

// That for what tells the whole pictures from others, where every pixel has to be in the finished
// file; missing or empty where something may be lost.
inline constexpr char kWholePictures[] = "planned.whole";

// What is called while a film is encoded.
struct EncodingSteps {
  // Gets the number of frames done, once for each pass.
  std::function<void(std::size_t)> progress;
  // Called when there is memory for another converter, maybe on another thread, with whether it may
  // be that every pixel will be in the file; again when that is known better.
  std::function<void(bool)> begun = [](bool) {};
};

// Makes the animation as the file `target`, which is there and empty, and its planned pictures in
// small. Throws a Failure when the converter reports any error.
void Encode(const Converter& converter, const Film& film, const Staging& staging,
            const std::filesystem::path& target, const EncodingSteps& steps);

// Makes the small pictures of the planned film again, in the file `name` in the staging folder.
// Throws a Failure when the converter reports any error.
void MakeSmallPictures(const Converter& converter, const Film& film, const Staging& staging,
                       const std::string& name);

}  // namespace animate

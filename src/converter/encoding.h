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

// Makes the animation as the file `target`, which is there and empty, and its planned pictures in
// small. `progress` gets the number of frames done, once for each pass. Throws a Failure when the
// converter reports any error.
void Encode(const Converter& converter, const Film& film, const Staging& staging,
            const std::filesystem::path& target, const std::function<void(std::size_t)>& progress);

// Makes the small pictures of the planned film again, in the file `name` in the staging folder.
// Throws a Failure when the converter reports any error.
void MakeSmallPictures(const Converter& converter, const Film& film, const Staging& staging,
                       const std::string& name);

}  // namespace animate

// Having a GIF made: its colours and pictures by the converter, the file by this program.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>

#include "converter/converter.h"
#include "converter/staging.h"
#include "film/film.h"

namespace animate {

// Makes the animation as Encode does.
void EncodeGif(const Converter& converter, const Film& film, const Staging& staging,
               const std::filesystem::path& target,
               const std::function<void(std::size_t)>& progress);

}  // namespace animate

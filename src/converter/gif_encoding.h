// Having a GIF made: its colours and pictures by the converter, the file by this program.
#pragma once

#include <filesystem>

#include "converter/converter.h"
#include "converter/encoding.h"
#include "converter/staging.h"
#include "film/film.h"

namespace animate {

// Makes the animation as Encode does.
void EncodeGif(const Converter& converter, const Film& film, const Staging& staging,
               const std::filesystem::path& target, const EncodingSteps& steps);

}  // namespace animate

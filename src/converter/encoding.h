// Having the converter encode a film.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>

#include "converter/converter.h"
#include "converter/staging.h"
#include "film/film.h"

namespace animate {

// Makes the animation as the file `target`, which is there and empty. `progress` gets the number of
// frames done, once for each pass. Throws a Failure when the converter reports any error.
void Encode(const Converter& converter, const Film& film, const Staging& staging,
            const std::filesystem::path& target, const std::function<void(std::size_t)>& progress);

}  // namespace animate

// Finding the frame that the converter cannot decode.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>

#include "converter/converter.h"
#include "converter/staging.h"
#include "film/film.h"

namespace animate {

// Has the converter decode the frames again, in ever smaller parts. Returns the first one that it
// cannot decode, as an index into the film's frames; nothing when all can be decoded, and when none
// can, since then the fault is not a frame's.
std::optional<std::size_t> FindBadFrame(const Converter& converter, const Film& film,
                                        const Staging& staging);

// The same search among frames with the numbers 1 to `count`, of which `areGood` says whether as
// many as its second argument from the number that is its first can be decoded. Returns a number.
std::optional<std::size_t> FindBadNumber(
    std::size_t count, const std::function<bool(std::size_t, std::size_t)>& areGood);

}  // namespace animate

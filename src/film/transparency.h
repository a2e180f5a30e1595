// Pixels that are not wholly there.
#pragma once

namespace animate {

// Whether a picture can have such pixels, and a format hold them: those that are not there at all,
// or of any degree. Each holds what the one before does.
enum class Transparency { kNone, kWhole, kGradual };

}  // namespace animate

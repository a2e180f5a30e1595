// What --help prints.
#pragma once

namespace animate {

// All options, grouped, the usual ones first; it fits one screen of 45 lines.
extern const char* const kHelp;

}  // namespace animate

// Frames out of what an interrupted run of TessaraAnimationConsole left.
#pragma once

#include <filesystem>

namespace animate {

// Gives every working copy of a frame in `folder` a name as a frame, "rescued_007.png" for number
// 007. Nothing is replaced. Throws a Failure when there is none, or one keeps its name.
void Rescue(const std::filesystem::path& folder, bool isQuiet);

}  // namespace animate

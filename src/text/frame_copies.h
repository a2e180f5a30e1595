// The names under which the console program works on copies of the frames.
#pragma once

// What these names begin with. They are part of its contract, and the only trace of the frames when
// a run was interrupted.
inline constexpr char kFrameCopyStart[] = "_console_qmbImgTemp_";

#include "animate/help.h"

namespace animate {

const char* const kHelp =
    R"(Makes one animation of a folder of numbered images, which it only reads (but for --delete-frames).

Usage: TessaraAnimate [OPTIONS] FRAMES [OUTPUT]

  FRAMES   a folder, one frame of the sequence that is meant, or a pattern: "run/cam1_*.png"
  OUTPUT   .mp4 .mov .webm .gif .apng .avi .wmv .flv .swf, or a folder for it; without it the
           animation is named after FRAMES and stands beside the folder

Which frames
      --list               make nothing, print the frames in their order
      --only RANGE         those with these numbers: 100-500, 100-500x5, 100-, -500, 0.5-2
      --every N            each Nth of them, the first among them
      --expect RANGE       end with 1 and make nothing when one of these numbers is missing
      --bad HOW            a bad frame: refuse (without this), skip it, or hold the one before
      --numbers HOW        decimal or whole: what 1.9 and 1.11 are, where names do not tell
      --join               parts, or equally large sequences, one after the other
      --each               an animation of each of them; OUTPUT is a folder
      --from-list FILE     in place of FRAMES: one path a line, in that order; - is the input
How long
  -r, --rate N             frames a second, up to 1000: 25, 2.5 or 30000/1001 (16)
      --speed X            true time: X units of the numbers in a second; dates count in seconds
      --hold S             the last frame stands S seconds longer
      --fill-gaps          where numbers are missing, hold the frame before
What it looks like
      --size WxH           fit the pictures into this size, their shape kept; also Wx, xH
      --background COLOUR  under transparent pixels and around smaller frames (white); #rrggbb
      --levels LOW-HIGH    spread these values over all there are: 0-4095, or auto
      --quality N          from 1 to 100, larger is better and bigger (80); APNG is always exact
      --max-size BYTES     the best that fits: 800kB, 10MB
What is made
      --format EXT         where OUTPUT is missing or a folder (mp4)
      --overwrite          replace an existing OUTPUT
      --contact-sheet F    also a sheet of up to 48 frames, the file F.png, to look at
      --delete-frames      delete the frames used once the animation is in place and proven
      --without-converter  a GIF of GIF frames as they are; on Windows also an uncompressed AVI
      --converter PATH     the ffmpeg to use
      --threads N          let it use no more threads than these
The rest
      --json               print a line of JSON in place of the closing line
      --rescue FOLDER      make frames again of copies that TessaraAnimationConsole left behind
  -q, --quiet              print nothing but errors
  -h, --help, --version    print this, or the version

Exit status: 0 the animation is in place and proven, 1 it is not, 2 wrong use, 130 interrupted.
)";

}  // namespace animate

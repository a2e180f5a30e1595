#include "converter/frame_words.h"

namespace animate {

Words InputWords(const Film& film, const std::string& pattern, std::size_t first) {
  // Turns are asked for in the filters, where each frame has its own. Without the second option the
  // converter would build its filters anew at a frame with other properties, and forget the colours
  // gathered so far.
  const Words reader = {"-noautorotate", "-reinit_filter", "0", "-f", "image2"};
  const Words decoder = film.frameType == "gif" ? Words{"-c:v", "gif"} : Words();
  return Joined(
      reader, decoder,
      Words{"-framerate", film.rate.text, "-start_number", std::to_string(first), "-i", pattern});
}

}  // namespace animate

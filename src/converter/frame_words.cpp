#include "converter/frame_words.h"

namespace animate {

Words InputWords(const Film& film, const std::string& pattern, Filters filters) {
  // Turns are asked for in the filters, where each frame has its own. Filters that begin anew
  // forget the colours gathered so far.
  const Words reader = {"-noautorotate", "-reinit_filter", filters == Filters::kOfAll ? "0" : "1",
                        "-f", "image2"};
  const Words decoder = film.frameType == "gif" ? Words{"-c:v", "gif"} : Words();
  return Joined(reader, decoder,
                Words{"-framerate", film.rate.text, "-start_number", "1", "-i", pattern});
}

}  // namespace animate

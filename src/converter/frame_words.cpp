#include "converter/frame_words.h"

namespace animate {

Words InputWords(const Film& film, const std::string& pattern, std::size_t first) {
  // Without the first option the converter would build its filters anew at a frame with other
  // properties, and forget the colours gathered so far.
  const Words reader = {"-reinit_filter", "0", "-f", "image2"};
  const Words decoder = film.frameType == "gif" ? Words{"-c:v", "gif"} : Words();
  return Joined(
      reader, decoder,
      Words{"-framerate", film.rate.text, "-start_number", std::to_string(first), "-i", pattern});
}

std::string SizeFilter(const Film& film, Size size) {
  const std::string width = std::to_string(size.width);
  const std::string height = std::to_string(size.height);
  const std::string scale = "scale=" + width + ":" + height;
  return film.hasSeveralSizes ? scale + ":force_original_aspect_ratio=decrease,pad=" + width + ":" +
                                    height + ":(ow-iw)/2:(oh-ih)/2:eval=frame,setsar=1"
                              : scale;
}

}  // namespace animate

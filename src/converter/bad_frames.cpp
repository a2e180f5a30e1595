#include "converter/bad_frames.h"

#include <string>

#include "converter/decoding_log.h"
#include "converter/frame_words.h"

namespace animate {

std::vector<BadFrame> FindBadFrames(const Converter& converter, const Film& film,
                                    const Staging& staging) {
  // With one thread the messages come in the order of the frames. The corner of a frame is enough
  // to say that it came out.
  DecodingLog log(film.shown.size());
  converter.ReadMessages(
      Joined(Words{"-v", "level+info", "-nostats", "-threads", "1"},
             InputWords(film, staging.Pattern()),
             Words{"-vf", "crop=1:1:0:0:exact=1,showinfo", "-vsync", "0", "-f", "null", "-"}),
      staging.Folder(), [&](const std::string& line) { log.Take(line); });
  std::vector<BadFrame> bad;
  std::vector<bool> isNamed(film.frames.size());
  const std::vector<DecodingLog::Fault> faults = log.Faults();
  if (faults.size() == film.shown.size()) {
    return bad;
  }
  for (const DecodingLog::Fault& fault : faults) {
    const std::size_t frame = film.shown.at(fault.frame);
    if (!isNamed[frame]) {
      isNamed[frame] = true;
      bad.push_back({frame, "is damaged and cannot be decoded (" + fault.error + ")"});
    }
  }
  return bad;
}

}  // namespace animate

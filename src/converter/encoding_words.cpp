#include "converter/encoding_words.h"

#include "converter/frame_words.h"
#include "converter/planned_picture.h"
#include "converter/small_pictures.h"

namespace animate {

Words InputOf(const Converter& converter, const Film& film, const Staging& staging) {
  return Joined(converter.Threads(), InputWords(film, staging.Pattern()));
}

Words RateOf(const Film& film) {
  return {"-r", film.rate.text};
}

std::string FilmAndSmall(const Film& film, const std::string& way) {
  return "[0:v]" + PlannedPicture(film) + ",split[a][b];[a]" + way + "[film];[b]" +
         PlannedInSmall(film) + "[small]";
}

Words SmallOutput(const Film& film, const std::string& name) {
  return Joined(Words{"-map", "[small]"}, RateOf(film),
                Words{"-c:v", "rawvideo", "-f", "rawvideo", name});
}

}  // namespace animate

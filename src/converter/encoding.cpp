#include "converter/encoding.h"

#include <string>

#include "converter/encoding_words.h"
#include "converter/gif_encoding.h"
#include "converter/planned_picture.h"
#include "converter/recipe.h"
#include "converter/small_pictures.h"
#include "platform/paths.h"

namespace animate {

void Encode(const Converter& converter, const Film& film, const Staging& staging,
            const std::filesystem::path& target, const EncodingSteps& steps) {
  const Recipe& recipe = RecipeFor(*film.format);
  if (recipe.codec == "gif") {
    EncodeGif(converter, film, staging, target, steps);
    return;
  }
  converter.MakePictures(
      Joined(InputOf(converter, film, staging),
             Words{"-filter_complex", FilmAndSmall(film, ColourFilter(film)), "-map", "[film]"},
             RateOf(film), EncodingWords(film), converter.Threads(),
             Words{"-f", recipe.muxer, platform::ArgumentOfPath(target)},
             SmallOutput(film, kPlannedPictures)),
      staging.Folder(), steps.progress);
}

void MakeSmallPictures(const Converter& converter, const Film& film, const Staging& staging,
                       const std::string& name) {
  converter.MakePictures(Joined(InputOf(converter, film, staging),
                                Words{"-filter_complex", "[0:v]" + PlannedPicture(film) + "," +
                                                             PlannedInSmall(film) + "[small]"},
                                SmallOutput(film, name)),
                         staging.Folder());
}

}  // namespace animate

#include "converter/encoding.h"

#include <string>

#include "converter/frame_words.h"
#include "converter/planned_picture.h"
#include "converter/recipe.h"
#include "converter/small_pictures.h"
#include "platform/paths.h"

namespace animate {
namespace {

Words InputOf(const Converter& converter, const Film& film, const Staging& staging) {
  return Joined(converter.Threads(), InputWords(film, staging.Pattern()));
}

// Some filters forget it.
Words RateOf(const Film& film) {
  return {"-r", film.rate.text};
}

// The output of small pictures.
Words SmallOutput(const Film& film, const std::string& name) {
  return Joined(Words{"-map", "[small]"}, RateOf(film),
                Words{"-c:v", "rawvideo", "-f", "rawvideo", name});
}

}  // namespace

void Encode(const Converter& converter, const Film& film, const Staging& staging,
            const std::filesystem::path& target, const std::function<void(std::size_t)>& progress) {
  const auto run = [&](const Words& words) {
    converter.MakePictures(words, staging.Folder(), progress);
  };
  const Recipe& recipe = RecipeFor(*film.format);
  const Words input = InputOf(converter, film, staging);
  const Words output = Joined(RateOf(film), EncodingWords(film), converter.Threads(),
                              Words{"-f", recipe.muxer, platform::ArgumentOfPath(target)});
  const Words small = SmallOutput(film, kPlannedPictures);
  const std::string planned = "[0:v]" + PlannedPicture(film);
  // What comes of a planned picture, on its way to the film and in small.
  const auto graph = [&](const std::string& way) {
    return planned + ",split[a][b];[a]" + way + "[film];[b]" + PlannedInSmall(film) + "[small]";
  };
  if (!recipe.hasPalette) {
    run(Joined(input, Words{"-filter_complex", graph(ColourFilter(film)), "-map", "[film]"}, output,
               small));
    return;
  }
  const std::string palette = "palette.png";
  run(Joined(input, Words{"-lavfi", planned + ",palettegen", "-frames:v", "1", palette}));
  run(Joined(input,
             Words{"-i", palette, "-filter_complex", graph("[1:v]paletteuse"), "-map", "[film]"},
             output, small));
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

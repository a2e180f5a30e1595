#include "converter/encoding.h"

#include <string>

#include "converter/frame_words.h"
#include "converter/planned_picture.h"
#include "converter/recipe.h"
#include "film/failure.h"
#include "platform/paths.h"

namespace animate {

void Encode(const Converter& converter, const Film& film, const Staging& staging,
            const std::filesystem::path& target, const std::function<void(std::size_t)>& progress) {
  const auto run = [&](const Words& words) {
    if (const auto made = converter.MakePictures(words, staging.Folder(), progress); !made) {
      throw Failure(made.Reason());
    }
  };
  const Recipe& recipe = RecipeFor(*film.format);
  const Words input = InputWords(film, staging.Pattern());
  const Words output =
      Joined(EncodingWords(film), Words{"-f", recipe.muxer, platform::ArgumentOfPath(target)});
  const std::string planned = PlannedPicture(film);
  if (!recipe.hasPalette) {
    run(Joined(input, Words{"-vf", planned + ColourFilter(film)}, output));
    return;
  }
  const std::string palette = "palette.png";
  run(Joined(input, Words{"-vf", planned + ",palettegen", "-frames:v", "1", palette}));
  run(Joined(input, Words{"-i", palette, "-lavfi", "[0:v]" + planned + "[x];[x][1:v]paletteuse"},
             output));
}

}  // namespace animate

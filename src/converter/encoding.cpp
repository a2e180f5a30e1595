#include "converter/encoding.h"

#include <string>

#include "converter/frame_words.h"
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
  const Words output = Joined(Words{"-c:v", recipe.codec}, recipe.parameters,
                              Words{"-f", recipe.muxer, platform::ArgumentOfPath(target)});
  const std::string size = SizeFilter(film, film.size);
  if (!recipe.hasPalette) {
    run(Joined(input, Words{"-vf", size}, output));
    return;
  }
  const std::string palette = "palette.png";
  run(Joined(input, Words{"-vf", size + ",palettegen", "-frames:v", "1", palette}));
  run(Joined(input, Words{"-i", palette, "-lavfi", "[0:v]" + size + "[x];[x][1:v]paletteuse"},
             output));
}

}  // namespace animate

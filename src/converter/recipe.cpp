#include "converter/recipe.h"

#include <algorithm>
#include <iterator>

namespace animate {
namespace {

const Words kYuv = {"-pix_fmt", "yuv420p"};
const Words kGoodMpeg4 = {"-q:v", "2", "-pix_fmt", "yuv420p"};
const Words kBest = {"-q:v", "1"};
const Words kConstantQuality = {"-crf",      "24", "-b:v",    "0", "-deadline", "good",
                                "-cpu-used", "4",  "-row-mt", "1", "-pix_fmt",  "yuv420p"};
// Every frame keeps its transparency, and colours when the first one has none.
const Words kForever = {"-plays", "0", "-pix_fmt", "rgba"};

const Recipe kRecipes[] = {
    {"mp4", "mp4", "mov", "libx264", kYuv},
    {"mov", "mov", "mov", "libx264", kYuv},
    {"webm", "webm", "matroska", "libvpx-vp9", kConstantQuality},
    {"gif", "gif", "gif", "gif", {"-loop", "0"}, true},
    {"apng", "apng", "apng", "apng", kForever},
    {"avi", "avi", "avi", "msmpeg4v3", kGoodMpeg4},
    {"wmv", "asf", "asf", "msmpeg4v3", kBest},
    {"flv", "flv", "flv", "flv1", kBest},
    {"swf", "swf", "swf", "flv1", kBest},
};

}  // namespace

const Recipe& RecipeFor(const Format& format) {
  return *std::find_if(std::begin(kRecipes), std::end(kRecipes),
                       [&](const Recipe& recipe) { return recipe.extension == format.extension; });
}

}  // namespace animate

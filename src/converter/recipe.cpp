#include "converter/recipe.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace animate {
namespace {

// A coder's own measure of quality, falling evenly from what it is at 1 to that at 80 and from
// there to that at 100.
double Measure(int quality, double at1, double at80, double at100) {
  return quality <= 80 ? at1 + (at80 - at1) * (quality - 1) / 79
                       : at80 + (at100 - at80) * (quality - 80) / 20;
}

std::string Whole(double number) {
  return std::to_string(std::lround(number));
}

// A rate factor of 0 would need a profile that few players have.
Words H264Quality(int quality) {
  char text[32];
  std::snprintf(&text[0], sizeof(text), "%.2f", Measure(quality, 45, 18, 1));
  return {"-crf", &text[0]};
}

// Of this one versions differ in what they follow: the quantizer's ends, or a number of bits.
Words OtherH264Quality(int quality) {
  const std::string measure = Whole(Measure(quality, 45, 18, 1));
  return {"-qmin", measure, "-qmax", measure, "-b:v", "40M"};
}

// Below 6 it makes larger files and smaller ones by turns, of the same pictures to the eye.
Words Vp9Quality(int quality) {
  return {"-crf", Whole(Measure(quality, 63, 24, 6)), "-b:v", "0"};
}

// What these coders call the quantizer; left alone they stop at 2. Of its whole numbers those are
// used of which a smaller one always shows more, in more bytes.
constexpr int kQuantizers[] = {30, 24, 20, 16, 12, 10, 8, 6, 4, 3, 2, 1};

const int* NearestQuantizer(double measure) {
  return std::min_element(std::begin(kQuantizers), std::end(kQuantizers), [&](int left, int right) {
    return std::abs(left - measure) < std::abs(right - measure);
  });
}

Words Quantizer(double measure) {
  return {"-qmin", "1", "-q:v", std::to_string(*NearestQuantizer(measure))};
}

// Between that and the next finer one, as the bits allow.
Words QuantizersWithin(double measure, double bitRate) {
  const int* const nearest = NearestQuantizer(measure);
  const int* const finer = std::min(nearest + 1, std::prev(std::end(kQuantizers)));
  // Left alone, a further limit keeps them from 1.
  return {"-qmin", std::to_string(*finer), "-qmax", std::to_string(*nearest), "-lmin", "1",
          "-b:v",  Whole(bitRate)};
}

double MpegMeasure(int quality) {
  return Measure(quality, 30, 2, 1);
}
Words MpegQuality(int quality) {
  return Quantizer(MpegMeasure(quality));
}
Words MpegWithin(int quality, double bitRate) {
  return QuantizersWithin(MpegMeasure(quality), bitRate);
}

// This one's numbers end before strong edges do where the quantizer is finer.
double WmvMeasure(int quality) {
  return Measure(quality, 30, 4, 3);
}
Words WmvQuality(int quality) {
  return Quantizer(WmvMeasure(quality));
}
Words WmvWithin(int quality, double bitRate) {
  return QuantizersWithin(WmvMeasure(quality), bitRate);
}

// Nothing is lost, whatever the quality.
Words Exact(int) {
  return {};
}

// For players that read while they load: what they need first stands in front. Nothing is added for
// the eye's sake: a colour map is data.
const Words kH264 = {"-profile:v", "high", "-psy", "0", "-movflags", "+faststart+write_colr"};
const Words kVp9 = {"-deadline", "good", "-cpu-used", "4", "-row-mt", "1"};
// Without a threshold they would begin anew at some quantizers and not at others.
const Words kEven = {"-sc_threshold", "1000000000"};
const Words kXvid = Joined(Words{"-tag:v", "XVID"}, kEven);
const Words kForever = {"-plays", "0"};

const Recipe kRecipes[] = {
    {"mp4", "mp4", "mov", "libx264", kH264, H264Quality, Colours::kTagged},
    {"mov", "mov", "mov", "libx264", kH264, H264Quality, Colours::kTagged},
    {"webm", "webm", "matroska", "libvpx-vp9", kVp9, Vp9Quality, Colours::kTagged},
    {"gif", "gif", "gif", "gif", {"-loop", "0"}, Exact, Colours::kRgb, true},
    {"apng", "apng", "apng", "apng", kForever, Exact, Colours::kRgb},
    // The code under which most players know their MPEG-4 decoder.
    {"avi", "avi", "avi", "mpeg4", kXvid, MpegQuality, Colours::kGuessed, false, MpegWithin},
    // The oldest of its kind that the players of Windows still decode.
    {"wmv", "asf", "asf", "wmv2", kEven, WmvQuality, Colours::kGuessed, false, WmvWithin},
    {"flv", "flv", "flv", "flv1", kEven, MpegQuality, Colours::kGuessed, false, MpegWithin},
    {"swf", "swf", "swf", "flv1", kEven, MpegQuality, Colours::kGuessed, false, MpegWithin},
};

// Where the usual encoder of H.264 is left out of a converter for its licence.
const Recipe kOtherH264 = {"mp4",
                           "mp4",
                           "mov",
                           "libopenh264",
                           {"-movflags", "+faststart+write_colr"},
                           OtherH264Quality,
                           Colours::kTagged};

// What players take for the matrix of a picture that does not say.
bool IsGuessedAsBt709(Size size) {
  return size.width >= 1280 || size.height > 576;
}

// The matrix by which the film's colours are held; empty for none.
std::string MatrixOf(const Film& film) {
  const Colours colours = RecipeFor(*film.format).colours;
  if (colours == Colours::kRgb) {
    return "";
  }
  return colours == Colours::kTagged || IsGuessedAsBt709(film.size) ? "bt709" : "bt601";
}

// What a recipe leaves to the film.
Words WordsForFilm(const Film& film) {
  if (film.format->extension == "apng") {
    // Every frame keeps its transparency, and colours when the first one has none.
    return {"-pix_fmt", KeepsDepth(film) ? "rgb48be" : "rgba"};
  }
  const bool isKept = film.freePixels == Film::FreePixels::kKept;
  // Some versions of its encoder refuse transparency where pictures may be there that are never
  // shown.
  return film.format->extension == "webm" && isKept ? Words{"-auto-alt-ref", "0"} : Words();
}

// The words for a level that the encoder would go beyond, where the pictures fit into a lower one:
// it chooses by the rate, and many players end at this.
Words LevelWords(const Film& film) {
  constexpr int kSide = 16;
  constexpr double kLargestPicture = 36864;
  constexpr double kPerSecond = 983040;
  const auto blocks = [](int side) {
    const int count = (side + kSide - 1) / kSide;
    return static_cast<double>(count);
  };
  const double picture = blocks(film.size.width) * blocks(film.size.height);
  constexpr double kLevel42 = 8704;
  const bool fits = picture <= kLargestPicture && picture * film.rate.value <= kPerSecond;
  return picture > kLevel42 && fits ? Words{"-level", "5.1"} : Words();
}

}  // namespace

Words DecoderWords(const Film& film) {
  const Recipe& recipe = RecipeFor(*film.format);
  // The usual decoder of this one passes over its transparency.
  return recipe.codec == "libvpx-vp9" && film.freePixels == Film::FreePixels::kKept
             ? Words{"-c:v", recipe.codec, "-f", recipe.demuxer}
             : Words{"-f", recipe.demuxer};
}

const Recipe* OtherRecipeFor(const Format& format) {
  return RecipeFor(format).codec == "libx264" ? &kOtherH264 : nullptr;
}

const Recipe& RecipeFor(const Format& format) {
  return *std::find_if(std::begin(kRecipes), std::end(kRecipes),
                       [&](const Recipe& recipe) { return recipe.extension == format.extension; });
}

Words EncodingWords(const Film& film) {
  const Recipe& recipe =
      film.hasOtherEncoder ? *OtherRecipeFor(*film.format) : RecipeFor(*film.format);
  const Words tags = {"-color_primaries", "bt709", "-color_trc",   "bt709",
                      "-colorspace",      "bt709", "-color_range", "tv"};
  return Joined(
      Words{"-c:v", recipe.codec}, recipe.parameters,
      film.bitRate ? recipe.within(film.quality, *film.bitRate) : recipe.quality(film.quality),
      recipe.colours == Colours::kTagged ? tags : Words(),
      recipe.codec == "libx264" ? LevelWords(film) : Words(), WordsForFilm(film));
}

std::string ColourFilter(const Film& film) {
  const std::string matrix = MatrixOf(film);
  const bool isKept = film.freePixels == Film::FreePixels::kKept;
  // The flags are for widths that are odd: without them a last column's colour is mixed with black.
  return matrix.empty()
             ? "null"
             : "scale=out_range=tv:out_color_matrix=" + matrix +
                   ":flags=area+full_chroma_inp,format=" + (isKept ? "yuva420p" : "yuv420p");
}

std::string ColoursBack(const Film& film) {
  const std::string matrix = MatrixOf(film);
  return matrix.empty() ? "" : "scale=in_range=tv:in_color_matrix=" + matrix;
}

}  // namespace animate

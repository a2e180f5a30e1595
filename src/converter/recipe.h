// How the converter makes each format.
#pragma once

#include <string>

#include "converter/words.h"
#include "film/film.h"

namespace animate {

// How the pictures of a format hold their colours.
enum class Colours {
  // As red, green and blue.
  kRgb,
  // As BT.709 of limited range, and tagged so.
  kTagged,
  // Without a tag: players guess from the size of the picture.
  kGuessed
};

struct Recipe {
  // The extension of the format that it is for.
  std::string extension;
  // The converter's names for the container, to write and to read it, and for the codec.
  std::string muxer;
  std::string demuxer;
  std::string codec;
  // What always follows the codec.
  Words parameters;
  // The words for a quality, from 1 to 100; larger ones never give less.
  Words (*quality)(int quality) = nullptr;
  Colours colours = Colours::kRgb;
  // Whether the colours are gathered in a palette first.
  bool hasPalette = false;
  // The words for that quality at least, and more where a number of bits a second allows; null
  // where qualities are so many that their sizes differ little.
  Words (*within)(int quality, double bitRate) = nullptr;
};

// The recipe for a format; every format has one.
const Recipe& RecipeFor(const Format& format);

// That with another encoder, for converters without the usual one; null where there is none.
const Recipe* OtherRecipeFor(const Format& format);

// How a finished file of the film is read.
Words DecoderWords(const Film& film);

// All words about how the film is encoded, from the codec on.
Words EncodingWords(const Film& film);

// The filter that brings pictures to the colours of the film's format; "null" where nothing is to
// be done.
std::string ColourFilter(const Film& film);

// The filter that brings them back to red, green and blue as players do; empty where they are.
std::string ColoursBack(const Film& film);

}  // namespace animate

#include "animate/with_converter.h"

#include <optional>
#include <string>
#include <vector>

#include "animate/bad_frames.h"
#include "animate/progress_line.h"
#include "animate/report.h"
#include "converter/bad_frames.h"
#include "converter/changed_frames.h"
#include "converter/contact_sheet.h"
#include "converter/converter.h"
#include "converter/encoding.h"
#include "converter/find_converter.h"
#include "converter/levels.h"
#include "converter/proof.h"
#include "converter/recipe.h"
#include "converter/size_limit.h"
#include "converter/staging.h"
#include "film/failure.h"
#include "film/quoted.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

// Where the files of one animation are.
struct Places {
  const Staging& staging;
  const fs::path& target;
  // Empty for none.
  const fs::path& sheet;
};

// The film as it is encoded.
Film EncodeAsAsked(const Converter& converter, const Film& film, const Options& options,
                   const Places& places, Proof& proof) {
  ProgressLine line(film.shown.size(), options.quiet);
  const auto progress = [&](std::size_t done) { line.Show(done); };
  if (options.maxBytes) {
    return EncodeWithin(*options.maxBytes, converter, film, places.staging, places.target,
                        progress);
  }
  Encode(converter, film, places.staging, places.target,
         {progress, [&](bool everyPixel) { proof.Prepare(film, everyPixel); }});
  return film;
}

// Whether frames may use less of the range of their values than they could: the means of cells say
// so. What is drawn in thin lines on white does not.
bool MayBeDim(const Film& film, const Likeness& likeness) {
  constexpr int kQuarter = 64;
  constexpr int kWhite = 250;
  return !film.levels && likeness.brightest - likeness.darkest < kQuarter &&
         (film.isDeep || likeness.brightest < kWhite);
}

// A note is no reason to give up a proven film.
void NoteIfDim(const Converter& converter, const Film& film, const Staging& staging) {
  try {
    PrintIfDim(MeasureLevels(converter, film, staging), film.isDeep);
  } catch (const Failure& failure) {
    if (failure.Status() == ExitStatus::kInterrupted) {
      throw;
    }
  }
}

Made Make(const Converter& converter, Film film, const Options& options, const Places& places) {
  if (options.hasAutoLevels) {
    const Levels levels = MeasureLevels(converter, film, places.staging);
    // One value alone cannot be spread.
    film.levels = levels.low < levels.high ? std::optional(levels) : std::nullopt;
    if (film.levels && !options.quiet) {
      PrintLevels(levels);
    }
  }
  Proof proof(converter, places.target, places.staging.Folder());
  film = EncodeAsAsked(converter, film, options, places, proof);
  if (!places.sheet.empty()) {
    MakeContactSheet(converter, film, places.staging, places.sheet);
  }
  const Measurement measured = proof.Of(film);
  CheckStillPlanned(converter, film, places.staging);
  if (!options.quiet && MayBeDim(film, *measured.likeness)) {
    NoteIfDim(converter, film, places.staging);
  }
  return {std::move(film), measured};
}

// Throws `failure` again, or one that says more: which frames are bad.
[[noreturn]] void Explain(const Failure& failure, const Converter& converter, const Film& film,
                          const Staging& staging) {
  if (std::vector<BadFrame> bad = FindBadFrames(converter, film, staging); !bad.empty()) {
    throw BadFramesFailure(film, std::move(bad));
  }
  throw failure;
}

// Makes it, or says why not.
Made MakeOrExplain(const Converter& converter, const Film& film, const Options& options,
                   const Places& places) {
  try {
    return Make(converter, film, options, places);
  } catch (const Failure& failure) {
    if (failure.Status() == ExitStatus::kInterrupted) {
      throw;
    }
    Explain(failure, converter, film, places.staging);
  }
}

// The first of some programs that has an encoder.
std::optional<Converter> FirstWith(const std::string& codec, const std::vector<fs::path>& programs,
                                   const Options& options) {
  for (const fs::path& program : programs) {
    const Converter converter(program, options.threads);
    if (converter.HasEncoder(codec).value_or(false)) {
      return converter;
    }
  }
  return std::nullopt;
}

// Makes it with another converter than the first, or with another encoder, since the first lacks
// the usual one. Throws a Failure when there is neither.
Made MakeOtherwise(const std::vector<fs::path>& programs, Film film, const Options& options,
                   const Places& places) {
  const std::string& codec = RecipeFor(*film.format).codec;
  const Recipe* const other = OtherRecipeFor(*film.format);
  const std::string lack = Quoted(programs.front()) + " has no encoder for " + codec;
  std::optional<Converter> converter = FirstWith(codec, programs, options);
  if (!converter && other != nullptr) {
    converter = FirstWith(other->codec, programs, options);
    film.hasOtherEncoder = converter.has_value();
  }
  if (!converter) {
    throw Failure("the converter " + lack + ", which a ." + film.format->extension + " file needs");
  }
  if (!options.quiet) {
    PrintNote("converter: " + lack + "; " + Quoted(converter->Program()) + " is used" +
              (film.hasOtherEncoder ? ", with " + other->codec : ""));
  }
  return MakeOrExplain(*converter, film, options, places);
}

}  // namespace

Made MakeWithConverter(const Plan& plan, const Options& options, const fs::path& target,
                       const fs::path& sheet) {
  const std::vector<fs::path> programs = FindConverters(options.converter);
  const Converter converter(programs.front(), options.threads);
  const Staging staging(plan.film,
                        sheet.empty() ? std::vector<std::size_t>() : FramesOnSheet(plan.film));
  const Places places = {staging, target, sheet};
  try {
    return Make(converter, plan.film, options, places);
  } catch (const Failure& failure) {
    if (failure.Status() == ExitStatus::kInterrupted) {
      throw;
    }
    if (converter.HasEncoder(RecipeFor(*plan.film.format).codec).value_or(true)) {
      Explain(failure, converter, plan.film, staging);
    }
  }
  return MakeOtherwise(programs, plan.film, options, places);
}

std::vector<BadFrame> FindUndecodable(const Film& film, const Options& options) {
  const Converter converter(FindConverters(options.converter).front(), options.threads);
  return FindBadFrames(converter, film, Staging(film, {}));
}

}  // namespace animate

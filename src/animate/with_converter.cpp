#include "animate/with_converter.h"

#include <string>
#include <vector>

#include "animate/bad_frames.h"
#include "animate/progress_line.h"
#include "converter/bad_frames.h"
#include "converter/contact_sheet.h"
#include "converter/converter.h"
#include "converter/encoding.h"
#include "converter/find_converter.h"
#include "converter/proof.h"
#include "converter/recipe.h"
#include "converter/staging.h"
#include "film/failure.h"
#include "picture/picture.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

Measurement Make(const Converter& converter, const Plan& plan, const Staging& staging,
                 const fs::path& target, const fs::path& sheet, bool isQuiet) {
  {
    ProgressLine line(plan.film.shown.size(), isQuiet);
    Encode(converter, plan.film, staging, target, [&](std::size_t done) { line.Show(done); });
  }
  if (!sheet.empty()) {
    MakeContactSheet(converter, plan.film, staging, sheet);
    OrFail(LookAtPicture(sheet), "the finished contact sheet");
  }
  return Prove(converter, plan.film, target, staging.Folder());
}

// Throws `failure` again, or one that says more: which encoder is missing, or which frames are bad.
[[noreturn]] void Explain(const Failure& failure, const Converter& converter, const Film& film,
                          const Staging& staging) {
  converter.CheckEncoder(RecipeFor(*film.format).codec, film.format->extension);
  if (std::vector<BadFrame> bad = FindBadFrames(converter, film, staging); !bad.empty()) {
    throw BadFramesFailure(film, std::move(bad));
  }
  throw failure;
}

}  // namespace

Measurement MakeWithConverter(const Plan& plan, const fs::path& target, const fs::path& sheet,
                              const fs::path& wanted, bool isQuiet) {
  const Converter converter(FindConverter(wanted));
  const Staging staging(plan.film,
                        sheet.empty() ? std::vector<std::size_t>() : FramesOnSheet(plan.film));
  try {
    return Make(converter, plan, staging, target, sheet, isQuiet);
  } catch (const Failure& failure) {
    if (failure.Status() == ExitStatus::kInterrupted) {
      throw;
    }
    Explain(failure, converter, plan.film, staging);
  }
}

std::vector<BadFrame> FindUndecodable(const Film& film, const fs::path& wanted) {
  return FindBadFrames(Converter(FindConverter(wanted)), film, Staging(film, {}));
}

}  // namespace animate

#include "animate/bad_frames.h"

#include <algorithm>
#include <optional>

#include "film/listed.h"
#include "film/quoted.h"

namespace animate {
namespace {

std::string TextOfAll(const Film& film, const std::vector<BadFrame>& bad) {
  std::vector<std::string> texts;
  texts.reserve(bad.size());
  for (const BadFrame& one : bad) {
    texts.push_back(TextOf(film, one));
  }
  return (bad.size() == 1 ? "" : std::to_string(bad.size()) + " frames are bad: ") +
         Listed(texts, "; ");
}

}  // namespace

BadFramesFailure::BadFramesFailure(const Film& film, std::vector<BadFrame> bad)
    : Failure(TextOfAll(film, bad)), bad_(std::move(bad)) {}

std::string TextOf(const Film& film, const BadFrame& bad) {
  const bool isLast = bad.frame + 1 == film.frames.size();
  return Quoted(film.frames[bad.frame].path.filename()) + " " + bad.reason +
         (isLast ? " (it is the last one; something may still be writing it)" : "");
}

void TakeOut(const std::vector<BadFrame>& bad, BadFrames how, bool isByTime, Film& film) {
  std::vector<bool> isBad(film.frames.size());
  for (const BadFrame& one : bad) {
    isBad[one.frame] = true;
  }
  std::optional<std::size_t> before;
  std::vector<std::size_t> shown;
  for (const std::size_t frame : film.shown) {
    if (!isBad[frame]) {
      before = frame;
      shown.push_back(frame);
    } else if (how == BadFrames::kHold && !before) {
      throw Failure("--bad hold: the first frame is bad, and there is none before it to hold: " +
                    TextOfAll(film, bad));
    } else if (before && (how == BadFrames::kHold || isByTime)) {
      shown.push_back(*before);
    }
  }
  if (shown.empty() || std::all_of(shown.begin(), shown.end(),
                                   [&](std::size_t frame) { return frame == shown.front(); })) {
    throw Failure("fewer than two good frames are left: " + TextOfAll(film, bad));
  }
  film.shown = std::move(shown);
}

}  // namespace animate

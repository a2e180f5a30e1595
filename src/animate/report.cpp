#include "animate/report.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unordered_set>

#include "animate/bad_frames.h"
#include "animate/shown.h"
#include "film/failure.h"
#include "film/listed.h"
#include "platform/paths.h"
#include "platform/user.h"

namespace animate {
namespace {

std::string Count(std::size_t count, const char* one, const char* more) {
  return std::to_string(count) + " " + (count == 1 ? one : more);
}

std::string FrameName(const Findings& found, std::size_t index) {
  return platform::TextOfPath(found.frames[index].name);
}

// ", in steps of 0.05"; nothing for steps of 1.
std::string StepText(const Findings& found) {
  const std::string step = found.step ? found.step->Text() : "1";
  return step == "1" ? "" : ", in steps of " + step + (IsTime(found.kind) ? " s" : "");
}

// Whether a text got to standard output whole; errno says why not.
bool Write(const std::string& text) {
  return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() &&
         std::fflush(stdout) == 0;
}

}  // namespace

void PrintNote(const std::string& line) {
  // In one piece: formatted output goes to a Windows console character by character.
  std::fputs((line + "\n").c_str(), stderr);
}

void PrintFindings(const Findings& found) {
  const std::size_t last = found.frames.size() - 1;
  PrintNote("frames: " + FrameName(found, 0) + " to " + FrameName(found, last) + ", " +
            std::to_string(found.frames.size()) + " frames");
  std::vector<std::string> items;
  std::size_t missing = 0;
  for (const Gap& gap : found.gaps) {
    missing += gap.count;
    items.push_back((gap.count == 1 ? gap.first : gap.first + " to " + gap.last) + " (after " +
                    FrameName(found, gap.after) + ")");
  }
  if (missing != 0) {
    PrintNote("missing: " + Count(missing, "number", "numbers") + StepText(found) + ": " +
              Listed(items));
  }
  items.clear();
  for (const std::size_t index : found.doubles) {
    items.push_back(FrameName(found, index) + " (after " + FrameName(found, index - 1) + ")");
  }
  if (!items.empty()) {
    PrintNote("twice: " + Count(items.size(), "number", "numbers") +
              ", each is a frame: " + Listed(items));
  }
  PrintLeftOut(found.leftOut);
}

void PrintLeftOut(const std::vector<std::string>& texts) {
  if (!texts.empty()) {
    PrintNote("left out: " + Listed(texts));
  }
}

void PrintFailure(const std::string& reason) {
  PrintNote("TessaraAnimate: " + reason);
}

void PrintText(const std::string& text) {
  if (!Write(text) && !platform::HasReaderGone()) {
    throw Failure(std::string("standard output cannot be written: ") + std::strerror(errno));
  }
}

void PrintClosing(const std::string& line) {
  if (!Write(line)) {
    PrintNote(std::string("standard output cannot be written: ") + std::strerror(errno));
  }
}

void PrintUnseen(std::size_t count, const Rate& rate) {
  if (count != 0) {
    PrintNote("unseen: " + Count(count, "frame stands", "frames stand") +
              " for less than a tick of " + rate.text + " frames a second");
  }
}

void PrintBad(const Plan& plan, BadFrames how) {
  std::vector<std::string> items;
  for (const BadFrame& bad : plan.bad) {
    items.push_back(TextOf(plan.film, bad));
  }
  if (!items.empty()) {
    PrintNote("bad: " + Count(items.size(), "frame", "frames") +
              (how == BadFrames::kHold ? ", the one before stays: " : ", skipped: ") +
              Listed(items));
  }
}

void PrintPlan(const Plan& plan) {
  const Film& film = plan.film;
  const std::size_t held =
      film.shown.size() -
      std::unordered_set<std::size_t>(film.shown.begin(), film.shown.end()).size();
  PrintNote("making: " + platform::TextOfPath(plan.output) + ", " +
            std::to_string(film.shown.size()) + " frames" +
            (held == 0 ? "" : " (" + std::to_string(held) + " of them held)") + " at " +
            film.rate.text + " frames a second, " + ShownSize(film.size));
  std::vector<std::string> items;
  for (const std::size_t frame : plan.withMore) {
    items.push_back(platform::TextOfPath(film.frames[frame].path.filename()));
  }
  if (!items.empty()) {
    PrintNote("pictures: " + Count(items.size(), "file holds", "files hold") +
              " several, of which the first is shown: " + Listed(items));
  }
  const Size most = film.format->largestShown;
  if (most.width != 0 && (std::max(film.size.width, film.size.height) > most.width ||
                          std::min(film.size.width, film.size.height) > most.height)) {
    PrintNote("size: larger than the " + ShownSize(most) +
              " that most players show; --size makes it smaller");
  }
  if (film.hasSeveralSizes) {
    PrintNote("sizes: the frames have several; each is in the middle of " + ShownSize(film.canvas));
  }
  if (film.isDeep && film.format->isDeep && !KeepsDepth(film)) {
    PrintNote("16 bits: with transparency colours are kept with 8");
  }
  if (film.freePixels == Film::FreePixels::kLaid) {
    char colour[16];
    std::snprintf(&colour[0], sizeof(colour), "#%02x%02x%02x", film.background.red,
                  film.background.green, film.background.blue);
    PrintNote(std::string("transparency: laid on ") + &colour[0] + " (--background)");
  }
}

void PrintLevels(const Levels& levels) {
  PrintNote("levels: the frames have values from " + std::to_string(levels.low) + " to " +
            std::to_string(levels.high) + ", which are spread");
}

void PrintIfDim(const Levels& levels, bool isDeep) {
  const std::uint32_t most = isDeep ? 0xFFFF : 0xFF;
  if (levels.low < levels.high && (levels.high - levels.low) * 4 < most) {
    PrintNote("levels: the frames use only " + std::to_string(levels.low) + " to " +
              std::to_string(levels.high) + " of 0 to " + std::to_string(most) +
              "; --levels auto spreads that");
  }
}

std::string ResultText(const Account& account, const Options& options) {
  const Plan& plan = *account.plan;
  const Measurement& measured = *account.measured;
  char length[32];
  std::snprintf(&length[0], sizeof(length), "%.1f s", measured.length);
  const std::string bad = plan.bad.empty()
                              ? ""
                              : ", " + Count(plan.bad.size(), "bad frame", "bad frames") +
                                    (options.bad == BadFrames::kHold ? " held over" : " skipped");
  const std::string chosen = options.maxBytes && plan.film.format->hasQuality
                                 ? ", quality " + std::to_string(plan.film.quality)
                                 : "";
  return platform::TextOfPath(plan.output.filename()) + ": " + std::to_string(measured.frames) +
         " frames, " + &length[0] + " at " + plan.film.rate.text + " frames a second, " +
         ShownSize(measured.size) + chosen + ", " + ShownBytes(account.bytes) +
         (measured.likeness
              ? ", all " + std::to_string(measured.frames) + " compared, " +
                    (measured.likeness->isExact
                         ? "every pixel exact"
                         : "colours within " + std::to_string(measured.likeness->difference) +
                               " of 255")
              : "") +
         bad + "\n";
}

void PrintKept(const std::vector<std::string>& kept, std::size_t count) {
  if (!kept.empty()) {
    PrintNote("not deleted: " +
              (kept.size() == count ? "all of the " + std::to_string(count) + " frames"
                                    : Count(kept.size(), "frame", "frames")) +
              ": " + Listed(kept));
  }
}

}  // namespace animate

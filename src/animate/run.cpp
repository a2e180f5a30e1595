#include "animate/run.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <unordered_set>

#include "animate/account.h"
#include "animate/bad_frames.h"
#include "animate/frame_search.h"
#include "animate/json_report.h"
#include "animate/merge_gifs.h"
#include "animate/new_file.h"
#include "animate/plan.h"
#include "animate/report.h"
#include "animate/rescue.h"
#include "animate/timing.h"
#include "animate/uncompressed_avi.h"
#include "animate/with_converter.h"
#include "film/changed_frame.h"
#include "film/interruption.h"
#include "platform/file_system.h"
#include "platform/paths.h"

namespace animate {
namespace {

// The frames that are in the film, each once.
std::vector<Frame> FramesIn(const Film& film) {
  const std::unordered_set<std::size_t> shown(film.shown.begin(), film.shown.end());
  std::vector<Frame> frames;
  for (std::size_t index = 0; index < film.frames.size(); ++index) {
    if (shown.contains(index)) {
      frames.push_back(film.frames[index]);
    }
  }
  return frames;
}

// Throws a Failure when a frame is no more the one that was looked at, and perhaps not the one that
// is in the animation.
void CheckUnchanged(const Film& film) {
  for (const Frame& frame : FramesIn(film)) {
    if (platform::QueryStatus(frame.path) != frame.status) {
      throw ChangedFrame(frame);
    }
  }
}

// Deletes the frames that are in the film.
void DeleteFrames(const Film& film) {
  std::vector<std::string> kept;
  const std::vector<Frame> frames = FramesIn(film);
  for (const Frame& frame : frames) {
    const std::string name = platform::TextOfPath(frame.path.filename());
    if (platform::QueryStatus(frame.path) != frame.status) {
      // It is not the one in the animation.
      kept.push_back(name + " (changed meanwhile)");
    } else if (const auto deleted = platform::DeleteOneFile(frame.path); !deleted) {
      kept.push_back(name + " (" + deleted.Reason() + ")");
    }
  }
  PrintKept(kept, frames.size());
}

// All bad frames, in the order of the film.
std::vector<BadFrame> Together(std::vector<BadFrame> bad, const std::vector<BadFrame>& more) {
  bad.insert(bad.end(), more.begin(), more.end());
  std::sort(bad.begin(), bad.end(),
            [](const BadFrame& left, const BadFrame& right) { return left.frame < right.frame; });
  return bad;
}

// Throws a Failure that names all bad frames of the plan: those that were found bad when they were
// looked at, and those that only the converter finds among the others.
[[noreturn]] void RefuseBad(const Plan& plan, const Options& options) {
  std::vector<BadFrame> more;
  try {
    Film rest = plan.film;
    TakeOut(plan.bad, BadFrames::kSkip, false, rest);
    if (plan.way == Way::kConverter) {
      more = FindUndecodable(rest, options);
    }
  } catch (const Failure& failure) {
    if (failure.Status() == ExitStatus::kInterrupted) {
      throw;
    }
    // Without a converter, or enough other frames, these are all that can be found.
  }
  throw BadFramesFailure(plan.film, Together(plan.bad, more));
}

Made MakeOnce(const Plan& plan, const Options& options, const NewFile& animation,
              const std::optional<NewFile>& sheet) {
  switch (plan.way) {
    case Way::kMergedGifs:
      return {plan.film, MergeGifs(plan.film, animation.Path())};
    case Way::kUncompressedAvi:
      return {plan.film, MakeUncompressedAvi(plan.film, animation.Path())};
    case Way::kConverter:
      break;
  }
  return MakeWithConverter(plan, options, animation.Path(), sheet ? sheet->Path() : "");
}

void Announce(const Plan& plan, const Options& options) {
  if (!options.quiet) {
    PrintBad(plan, options.bad);
    PrintPlan(plan);
  }
}

// Makes the animation; once more without the bad frames that the converter finds, when they are not
// to be refused.
Made Make(Plan& plan, const Options& options, const NewFile& animation,
          const std::optional<NewFile>& sheet) {
  Announce(plan, options);
  try {
    return MakeOnce(plan, options, animation, sheet);
  } catch (const BadFramesFailure& failure) {
    if (options.bad == BadFrames::kRefuse) {
      throw;
    }
    plan.bad = Together(std::move(plan.bad), failure.Frames());
    TakeOut(failure.Frames(), options.bad, options.speed.has_value(), plan.film);
  }
  Announce(plan, options);
  return MakeOnce(plan, options, animation, sheet);
}

void MakeAnimation(const Options& options, Account& account) {
  Plan& plan = *account.plan;
  if (!plan.bad.empty() && options.bad == BadFrames::kRefuse) {
    RefuseBad(plan, options);
  }
  if (!plan.bad.empty()) {
    TakeOut(plan.bad, options.bad, options.speed.has_value(), plan.film);
  }
  NewFile animation(plan.output);
  std::optional<NewFile> sheet;
  if (!plan.contactSheet.empty()) {
    sheet.emplace(plan.contactSheet);
  }
  Made made = Make(plan, options, animation, sheet);
  StopIfInterrupted();
  CheckUnchanged(plan.film);
  if (sheet) {
    sheet->PutInPlaceForNow(plan.replace);
  }
  animation.PutInPlace(plan.replace);
  if (sheet) {
    sheet->Keep();
  }
  if (options.deleteFrames) {
    DeleteFrames(plan.film);
  }
  plan.film = std::move(made.film);
  account.measured = made.measured;
  account.bytes = platform::QueryStatus(plan.output).size;
}

void List(const Timing& timing, Account& account) {
  account.files.emplace();
  for (const std::size_t index : timing.shown) {
    account.files->push_back(account.found->folder / account.found->findings.frames[index].name);
  }
}

// Everything for one animation, but for how it ended.
void Work(const Options& options, Account& account) {
  const FoundFrames& found = *account.found;
  if (!found.refusal.empty()) {
    throw Failure(found.refusal);
  }
  if (!options.quiet) {
    PrintFindings(found.findings);
  }
  const Timing timing = TimeFrames(found.findings, options);
  if (!options.quiet) {
    PrintUnseen(timing.unseen, options.rate);
  }
  if (options.list) {
    List(timing, account);
    return;
  }
  account.plan = MakePlan(options, found, timing);
  MakeAnimation(options, account);
}

std::string ListText(const Account& account) {
  std::string text;
  for (const std::filesystem::path& file : *account.files) {
    text += platform::TextOfPath(file) + "\n";
  }
  return text;
}

// Makes, or lists, one animation of the frames that `find` finds, and prints how that ended.
ExitStatus MakeOne(const Options& options, const std::function<FoundFrames()>& find) {
  Account account;
  try {
    account.found = find();
    Work(options, account);
  } catch (const Failure& failure) {
    PrintFailure(failure.what());
    if (options.json) {
      PrintClosing(JsonOf(account, &failure));
    }
    return failure.Status();
  }
  if (account.files) {
    PrintText(options.json ? JsonOf(account) : ListText(account));
  } else if (options.json || !options.quiet) {
    PrintClosing(options.json ? JsonOf(account) : ResultText(account, options));
  }
  return ExitStatus::kSuccess;
}

ExitStatus MakeEach(const Options& options) {
  FoundFilms found = FindFilms(options);
  ExitStatus status = ExitStatus::kSuccess;
  for (FoundFrames& film : found.films) {
    const ExitStatus one = MakeOne(options, [&] { return std::move(film); });
    if (one == ExitStatus::kInterrupted) {
      return one;
    }
    status = one == ExitStatus::kSuccess ? status : ExitStatus::kFailure;
  }
  if (!options.quiet) {
    PrintLeftOut(found.leftOut);
  }
  return status;
}

}  // namespace

ExitStatus Run(const Options& options) {
  if (!options.rescue.empty()) {
    Rescue(options.rescue, options.quiet);
    return ExitStatus::kSuccess;
  }
  return options.each ? MakeEach(options) : MakeOne(options, [&] { return FindFrames(options); });
}

}  // namespace animate

#include "sequence/selection.h"

#include <algorithm>
#include <unordered_set>

#include "film/failure.h"
#include "film/listed.h"
#include "platform/paths.h"
#include "sequence/ascii.h"
#include "sequence/name_pattern.h"
#include "sequence/sequence_list.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostListed = 100;

// Members of a sequence that are one animation: a part of it or all.
struct Candidate {
  const ImageSequence* sequence = nullptr;
  std::size_t begin = 0;
  std::size_t end = 0;
  std::string name;

  std::size_t Size() const { return end - begin; }
};

// The images of a folder and what they make.
class Folder {
 public:
  Folder(const std::vector<fs::path>& names, const SequenceOptions& options) {
    for (const fs::path& name : names) {
      std::string text = platform::TextOfPath(name);
      const bool isMeant = !options.pattern || MatchesPattern(text, *options.pattern);
      (isMeant ? paths_ : otherPaths_).push_back(name);
      (isMeant ? texts_ : otherTexts_).push_back(std::move(text));
    }
    sequences_ = ListSequences(texts_, options.numbers);
    for (const ImageSequence& other : ListSequences(otherTexts_, options.numbers)) {
      others_.push_back(Described(otherTexts_, other, 0, other.members.size()));
    }
    NameAll();
  }

  const std::vector<ImageSequence>& Sequences() const { return sequences_; }

  // The parts of a sequence, or the whole when it has none.
  static std::vector<Candidate> PartsOf(const ImageSequence& sequence) {
    std::vector<Candidate> films;
    const auto& members = sequence.members;
    for (std::size_t index = 0; index < members.size(); ++index) {
      if (index == 0 || members[index].part != members[index - 1].part) {
        films.push_back({&sequence, index, index, sequence.partNames[films.size()]});
      }
      ++films.back().end;
    }
    return films;
  }

  std::string DescriptionOf(const Candidate& film) const {
    return Described(texts_, *film.sequence, film.begin, film.end);
  }

  // "a1.png to a9.png (9), b1.png to b9.png (9)".
  std::string List(const std::vector<Candidate>& films) const {
    std::vector<std::string> texts;
    texts.reserve(films.size());
    for (const Candidate& film : films) {
      texts.push_back(DescriptionOf(film));
    }
    return Listed(texts, ", ", kMostListed);
  }

  // Films that follow each other, as the frames of one animation.
  Findings Make(const std::vector<Candidate>& films) const {
    Findings made;
    const ImageSequence& first = *films.front().sequence;
    made.name = films.size() == 1 ? films.front().name : first.name;
    made.extension = first.extension;
    made.kind = first.kind;
    std::uint32_t stretches = 0;
    for (const Candidate& film : films) {
      const auto& members = film.sequence->members;
      made.kind = film.sequence->kind == made.kind ? made.kind : NumberKind::kWhole;
      const std::uint32_t firstStretch = members[film.begin].stretch;
      for (std::size_t index = film.begin; index < film.end; ++index) {
        const Member& member = members[index];
        made.frames.push_back({paths_[member.name], member.number,
                               stretches + member.stretch - firstStretch, member.isDouble});
      }
      stretches = made.frames.back().stretch + 1;
    }
    FindGaps(made);
    return made;
  }

  // What is left out of the folder when those films are made.
  std::vector<std::string> LeftOut(const std::vector<Candidate>& made) const {
    std::vector<std::string> texts;
    for (const ImageSequence& sequence : sequences_) {
      const std::vector<Candidate> parts = PartsOf(sequence);
      const auto isMade = [&](const Candidate& film) {
        return std::any_of(made.begin(), made.end(), [&](const Candidate& other) {
          return other.sequence == film.sequence && other.begin <= film.begin &&
                 film.end <= other.end;
        });
      };
      if (std::none_of(parts.begin(), parts.end(), isMade)) {
        texts.push_back(Described(texts_, sequence, 0, sequence.members.size()));
        continue;
      }
      for (const Candidate& part : parts) {
        if (!isMade(part)) {
          texts.push_back(DescriptionOf(part));
        }
      }
    }
    texts.insert(texts.end(), others_.begin(), others_.end());
    return texts;
  }

  // The sequence and the part that a frame is of; nothing when it is no frame.
  std::optional<Candidate> FilmOf(const fs::path& wanted) const {
    for (const ImageSequence& sequence : sequences_) {
      for (std::size_t index = 0; sequence.hasNumbers && index < sequence.members.size(); ++index) {
        if (paths_[sequence.members[index].name] == wanted) {
          return PartsOf(sequence)[sequence.members[index].part];
        }
      }
    }
    return std::nullopt;
  }

 private:
  static std::string Described(const std::vector<std::string>& texts, const ImageSequence& sequence,
                               std::size_t begin, std::size_t end) {
    const std::string& first = texts[sequence.members[begin].name];
    return end - begin == 1 ? first
                            : first + " to " + texts[sequence.members[end - 1].name] + " (" +
                                  std::to_string(end - begin) + ")";
  }

  // Makes the names of all films different, in any case of letters.
  void NameAll() {
    std::unordered_set<std::string> taken;
    const auto settle = [&](std::string& name, const std::string& extension) {
      const std::string wish = name;
      if (wish.empty() || taken.contains(LowerCase(name))) {
        name += (name.empty() ? "" : "_") + extension;
      }
      const std::string base = name;
      for (std::size_t count = 2; !taken.insert(LowerCase(name)).second; ++count) {
        name = base + "_" + std::to_string(count);
      }
    };
    for (ImageSequence& sequence : sequences_) {
      if (sequence.members.size() < 2) {
        continue;
      }
      for (std::string& name : sequence.partNames) {
        settle(name, sequence.extension);
      }
      if (sequence.partNames.size() == 1) {
        sequence.name = sequence.partNames.front();
      } else {
        settle(sequence.name, sequence.extension);
      }
    }
  }

  std::vector<fs::path> paths_;
  std::vector<std::string> texts_;
  std::vector<fs::path> otherPaths_;
  std::vector<std::string> otherTexts_;
  std::vector<ImageSequence> sequences_;
  std::vector<std::string> others_;
};

void CheckImages(const Folder& folder, const std::optional<std::string>& pattern) {
  if (folder.Sequences().empty()) {
    if (pattern) {
      throw Failure("no image fits the pattern \"" + *pattern + "\"");
    }
    throw Failure("there are no images (gif, bmp, jpg, jpeg, tif, tiff, png)");
  }
}

void CheckReading(const ImageSequence& sequence) {
  if (!sequence.doubt.empty()) {
    throw Failure(sequence.doubt);
  }
}

void CheckTwo(const Folder& folder, const Candidate& film) {
  if (film.Size() < 2) {
    throw Failure("there is no sequence of two or more frames, only " + folder.DescriptionOf(film));
  }
}

// The parts of the sequence that a frame belongs to, or the one that it is in.
std::vector<Candidate> FilmsOfWanted(const Folder& folder, const fs::path& wanted, bool join) {
  const std::optional<Candidate> film = folder.FilmOf(wanted);
  if (!film) {
    throw Failure("\"" + platform::TextOfPath(wanted) +
                  "\" is no frame of a sequence: it has to be an image with a number in its name");
  }
  CheckReading(*film->sequence);
  return join ? Folder::PartsOf(*film->sequence) : std::vector<Candidate>{*film};
}

// The largest sequence: all of its parts, when there are some and all of those as large.
std::vector<Candidate> LargestFilms(const Folder& folder, bool join) {
  std::vector<Candidate> films;
  std::size_t equals = 0;
  for (const ImageSequence& sequence : folder.Sequences()) {
    if (sequence.members.size() == folder.Sequences().front().members.size()) {
      CheckReading(sequence);
      const std::vector<Candidate> parts = Folder::PartsOf(sequence);
      films.insert(films.end(), parts.begin(), parts.end());
      ++equals;
    }
  }
  CheckTwo(folder, {films.front().sequence, 0, films.front().sequence->members.size(), ""});
  if (films.size() > 1 && !join) {
    throw Failure(
        "there are " + std::to_string(films.size()) +
        (equals > 1 ? " equally large films" : " films") + " side by side: " + folder.List(films) +
        "; name a frame of the one that is meant, or give --join (one after the other) or --each (an animation of each)");
  }
  return films;
}

}  // namespace

Findings FindSequence(const std::vector<fs::path>& names, const SequenceOptions& options) {
  const Folder folder(names, options);
  CheckImages(folder, options.pattern);
  const std::vector<Candidate> films = options.wanted
                                           ? FilmsOfWanted(folder, *options.wanted, options.join)
                                           : LargestFilms(folder, options.join);
  if (films.size() == 1) {
    CheckTwo(folder, films.front());
  }
  Findings findings = folder.Make(films);
  findings.leftOut = folder.LeftOut(films);
  return findings;
}

EachFilms FindEach(const std::vector<fs::path>& names, const SequenceOptions& options) {
  const Folder folder(names, options);
  CheckImages(folder, options.pattern);
  EachFilms each;
  std::vector<Candidate> made;
  for (const ImageSequence& sequence : folder.Sequences()) {
    for (const Candidate& film : Folder::PartsOf(sequence)) {
      if (film.Size() > 1) {
        made.push_back(film);
        each.films.push_back({folder.Make({film}), sequence.doubt});
      }
    }
  }
  if (made.empty()) {
    CheckTwo(folder, Folder::PartsOf(folder.Sequences().front()).front());
  }
  each.leftOut = folder.LeftOut(made);
  return each;
}

}  // namespace animate

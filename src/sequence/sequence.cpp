#include "sequence/sequence.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <numeric>
#include <tuple>

#include "film/failure.h"
#include "film/image_type.h"
#include "film/quoted.h"
#include "platform/paths.h"
#include "text/lower_case.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

// Stands for a number in a pattern; no name of a file can hold it.
constexpr char kNumber = '/';

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool NumberLess(const std::string& left, const std::string& right) {
  return left.size() != right.size() ? left.size() < right.size() : left < right;
}

bool FrameLess(const NumberedName& left, const NumberedName& right) {
  for (std::size_t index = 0; index < left.numbers.size(); ++index) {
    if (left.numbers[index] != right.numbers[index]) {
      return NumberLess(left.numbers[index], right.numbers[index]);
    }
  }
  return left.name.native() < right.name.native();
}

// The number that counts the frames: the first that tells all frames apart together with those in
// front of it. Returns how many are in front of it.
std::size_t CounterIndex(const Sequence& frames) {
  std::size_t counter = 0;
  for (std::size_t index = 1; index < frames.size(); ++index) {
    const auto& before = frames[index - 1].numbers;
    const auto& after = frames[index].numbers;
    const auto differ = std::mismatch(before.begin(), before.end(), after.begin());
    if (differ.first != before.end()) {
      counter = std::max(counter, static_cast<std::size_t>(differ.first - before.begin()));
    }
  }
  return counter;
}

// Every number of up to 19 digits fits.
constexpr std::size_t kMostDigits = 19;

struct Step {
  std::size_t after = 0;
  std::uint64_t from = 0;
  std::uint64_t difference = 0;
};

// From frame to frame, how the counter grows while the numbers in front of it stay.
std::vector<Step> CounterSteps(const Sequence& frames, std::size_t counter) {
  std::vector<Step> steps;
  for (std::size_t index = 1; index < frames.size(); ++index) {
    const auto& before = frames[index - 1].numbers;
    const auto& after = frames[index].numbers;
    if (std::equal(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(counter),
                   after.begin()) &&
        before[counter] != after[counter] && after[counter].size() <= kMostDigits) {
      const std::uint64_t from = std::stoull("0" + before[counter]);
      steps.push_back({index - 1, from, std::stoull("0" + after[counter]) - from});
    }
  }
  return steps;
}

// The usual difference when most have it, else the largest that all are multiples of. Times and
// other numbers that do not count frames have none: more would be missing than is there.
std::uint64_t FindStride(const std::vector<Step>& steps) {
  std::map<std::uint64_t, std::size_t> counts;
  std::uint64_t common = 0;
  for (const Step& step : steps) {
    ++counts[step.difference];
    common = std::gcd(common, step.difference);
  }
  for (const auto& [difference, count] : counts) {
    if (count * 2 >= steps.size()) {
      return difference;
    }
  }
  std::uint64_t missing = 0;
  for (const Step& step : steps) {
    missing += step.difference / common - 1;
  }
  return missing > steps.size() ? 0 : common;
}

void FindGaps(Findings& found) {
  const std::vector<Step> steps = CounterSteps(found.sequence, CounterIndex(found.sequence));
  const std::uint64_t stride = steps.empty() ? 0 : FindStride(steps);
  found.stride = stride;
  for (const Step& step : steps) {
    if (stride != 0 && step.difference >= 2 * stride) {
      const std::uint64_t count = (step.difference - 1) / stride;
      found.gaps.push_back({step.after, count, std::to_string(step.from + stride),
                            std::to_string(step.from + count * stride)});
    }
  }
}

std::string Shown(const NumberedName& frame) {
  return platform::TextOfPath(frame.name);
}

std::string Described(const Sequence& images) {
  return images.size() == 1 ? Shown(images.front())
                            : Shown(images.front()) + " to " + Shown(images.back()) + " (" +
                                  std::to_string(images.size()) + ")";
}

// The sequences of a folder, the largest first; images without a number stand alone.
std::vector<Sequence> GroupImages(const std::vector<fs::path>& names) {
  std::map<std::string, Sequence> groups;
  std::vector<Sequence> sequences;
  for (const fs::path& name : names) {
    if (!ImageType(name).empty()) {
      NumberedName image = CutName(name);
      if (image.numbers.empty()) {
        sequences.push_back({std::move(image)});
      } else {
        groups[image.pattern].push_back(std::move(image));
      }
    }
  }
  for (auto& [pattern, images] : groups) {
    std::sort(images.begin(), images.end(), FrameLess);
    sequences.push_back(std::move(images));
  }
  std::sort(sequences.begin(), sequences.end(), [](const Sequence& left, const Sequence& right) {
    return left.size() != right.size() ? left.size() > right.size()
                                       : left.front().name < right.front().name;
  });
  return sequences;
}

std::size_t IndexOfWanted(const std::vector<Sequence>& sequences, const fs::path& wanted) {
  const auto meant = std::find_if(sequences.begin(), sequences.end(), [&](const Sequence& images) {
    return std::any_of(images.begin(), images.end(),
                       [&](const NumberedName& image) { return image.name == wanted; });
  });
  if (meant == sequences.end() || meant->front().numbers.empty()) {
    throw Failure(Quoted(wanted) +
                  " is no frame of a sequence: it has to be an image with a number in its name");
  }
  return static_cast<std::size_t>(meant - sequences.begin());
}

}  // namespace

NumberedName CutName(const fs::path& name) {
  const std::string text = platform::TextOfPath(name);
  const std::size_t dot = text.rfind('.');
  NumberedName cut = {name, "", {}};
  for (std::size_t at = 0; at < std::min(dot, text.size());) {
    if (!IsDigit(text[at])) {
      cut.pattern += text[at++];
      continue;
    }
    const auto end =
        std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), IsDigit);
    const auto length = static_cast<std::size_t>(end - text.begin()) - at;
    std::string number = text.substr(at, length);
    number.erase(0, std::min(number.find_first_not_of('0'), number.size()));
    cut.numbers.push_back(std::move(number));
    cut.pattern += kNumber;
    at += length;
  }
  cut.pattern = LowerCase(cut.pattern) + "." + ImageType(name);
  return cut;
}

Findings FindSequence(const std::vector<fs::path>& names, const std::optional<fs::path>& wanted) {
  std::vector<Sequence> sequences = GroupImages(names);
  const std::size_t meant = wanted ? IndexOfWanted(sequences, *wanted) : 0;
  if (sequences.empty()) {
    throw Failure("there are no images (gif, bmp, jpg, jpeg, tif, tiff, png)");
  }
  if (sequences[meant].size() < 2) {
    throw Failure("there is no sequence of two or more frames, only " +
                  Described(sequences[meant]));
  }
  if (!wanted && sequences.size() > 1 && sequences[1].size() == sequences[0].size()) {
    throw Failure("two sequences are equally large: " + Described(sequences[0]) + " and " +
                  Described(sequences[1]) + "; name a frame of the one that is meant");
  }
  Findings found;
  found.sequence = std::move(sequences[meant]);
  sequences.erase(sequences.begin() + static_cast<std::ptrdiff_t>(meant));
  for (const Sequence& other : sequences) {
    found.leftOut.push_back(Described(other));
  }
  for (std::size_t index = 1; index < found.sequence.size(); ++index) {
    if (found.sequence[index].numbers == found.sequence[index - 1].numbers) {
      found.doubles.push_back(index);
    }
  }
  FindGaps(found);
  return found;
}

}  // namespace animate

#include "tests/reference/literal_ordering.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <utility>

namespace {

using Names = std::vector<std::string>;

std::string Left(const std::string& text, int count) {
  return text.substr(0, static_cast<std::size_t>(std::max(count, 0)));
}

std::string Right(const std::string& text, int count) {
  const int length = static_cast<int>(text.size());
  return text.substr(static_cast<std::size_t>(length - std::clamp(count, 0, length)));
}

int Number(const std::string& text) {
  constexpr std::int64_t kLowest = std::numeric_limits<int>::min();
  constexpr std::int64_t kHighest = std::numeric_limits<int>::max();
  return static_cast<int>(
      std::clamp<std::int64_t>(std::strtoll(text.c_str(), nullptr, 10), kLowest, kHighest));
}

int StemLength(const std::string& name) {
  const std::size_t dot = name.rfind('.');
  const int typeWord = dot == std::string::npos ? 0 : static_cast<int>(name.size() - dot - 1);
  return static_cast<int>(name.size()) - typeWord - 1;
}

// The piece of the candidates' texts, cut to a growing length by `piece`, that most texts have.
template <typename Cut>
std::pair<std::string, int> Search(const Names& texts, const std::vector<int>& ends, Cut piece) {
  std::string best;
  int bestCount = 0;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    for (int length = 1; ends[i] > 0 && length != ends[i]; ++length) {
      const std::string wanted = piece(texts[i], length);
      const int count =
          static_cast<int>(std::count_if(texts.begin(), texts.end(), [&](const std::string& text) {
            return piece(text, length) == wanted;
          }));
      if (count >= bestCount) {
        bestCount = count;
        best = wanted;
      }
    }
  }
  return {best, bestCount};
}

std::pair<std::string, int> FrontSearch(const Names& names) {
  std::vector<int> ends;
  for (const std::string& name : names) {
    ends.push_back(StemLength(name));
  }
  return Search(names, ends, Left);
}

std::string RearSearch(const Names& names) {
  Names stems;
  std::vector<int> ends;
  for (const std::string& name : names) {
    stems.push_back(name.substr(0, name.rfind('.')));
    ends.push_back(static_cast<int>(stems.back().size()));
  }
  return Search(stems, ends, Right).first;
}

struct TwoKeys {
  std::vector<int> primary, secondary;
  Names texts;

  void SwapAll(std::size_t p, std::size_t q, bool primaryToo) {
    if (primaryToo) {
      std::swap(primary[p], primary[q]);
    }
    std::swap(secondary[p], secondary[q]);
    std::swap(texts.at(p), texts.at(q));
  }

  void Sort() {
    const std::size_t m = primary.size();
    for (std::size_t p = 0; p + 1 < m; ++p) {
      for (std::size_t q = p + 1; q < m; ++q) {
        if (primary[p] > primary[q]) {
          SwapAll(p, q, true);
        }
      }
    }
    std::vector<std::size_t> runs;
    std::size_t run = 1;
    for (std::size_t p = 1; p < m; ++p, ++run) {
      if (primary[p] != primary[p - 1]) {
        runs.push_back(run);
        run = 0;
      }
    }
    runs.push_back(run);
    std::size_t g = 0, s = 0;
    for (std::size_t p = 0; p + 1 < m; ++p) {
      if (p > 0 && primary[p] != primary[p - 1]) {
        ++g;
        s = p;
      }
      for (std::size_t q = p + 1; q < s + runs[g]; ++q) {
        if (secondary[p] > secondary[q]) {
          SwapAll(p, q, false);
        }
      }
    }
  }
};

}  // namespace

LiteralResult OrderLiterally(const Names& names) {
  LiteralResult result;
  const auto [front, holders] = FrontSearch(names);
  if (holders >= 2) {
    result.frontCommonPart = front;
    result.commonPart = front;
  }
  std::string& common = result.commonPart;
  bool fromRear = false;
  Names selected;
  for (const std::string& name : names) {
    if (Left(name, static_cast<int>(common.size())) == common) {
      selected.push_back(name);
    }
  }
  if (selected.size() != names.size() && selected.size() < names.size() / 2) {
    selected.clear();
    common = RearSearch(names);
    fromRear = true;
    for (const std::string& name : names) {
      const std::string stem = Left(name, StemLength(name));
      if (Right(stem, static_cast<int>(common.size())) == common) {
        selected.push_back(name);
      }
    }
  }
  TwoKeys keys;
  for (const std::string& name : selected) {
    const std::string stem = Left(name, StemLength(name));
    const int length = StemLength(name) - static_cast<int>(common.size());
    const std::string part = fromRear ? Left(stem, length) : Right(stem, length);
    std::string head, tail;
    bool underscore = false;
    for (const char c : part) {
      if (c == '_') {
        underscore = true;
      } else {
        (underscore ? tail : head) += c;
      }
    }
    keys.primary.push_back(Number(head));
    keys.secondary.push_back(Number(tail));
    if (underscore) {
      keys.texts.push_back(part);
    }
  }
  if (keys.texts.empty()) {
    std::vector<int> sorted = keys.primary;
    std::sort(sorted.begin(), sorted.end());
    for (const int key : sorted) {
      const auto first = std::find(keys.primary.begin(), keys.primary.end(), key);
      result.frames.push_back(selected[static_cast<std::size_t>(first - keys.primary.begin())]);
    }
    return result;
  }
  try {
    keys.Sort();
  } catch (const std::out_of_range&) {
    return result;
  }
  const std::string& firstName = names.front();
  for (const std::string& text : keys.texts) {
    result.frames.push_back(common + text + "." + firstName.substr(firstName.rfind('.') + 1));
  }
  return result;
}

#include "tests/reference/literal_ordering.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace {

using Names = std::vector<std::string>;

// The first or the last characters of a text, all of them when it has no more.
std::string End(const std::string& text, std::size_t count, bool fromRear) {
  count = std::min(count, text.size());
  return text.substr(fromRear ? text.size() - count : 0, count);
}

int Number(const std::string& text) {
  const long long number = std::strtoll(text.c_str(), nullptr, 10);
  return static_cast<int>(std::clamp(number, -0x80000000LL, 0x7FFFFFFFLL));
}

// A name without a dot loses its last character.
std::string Stem(const std::string& name) {
  return name.substr(0, std::min(name.rfind('.'), name.size() - 1));
}

// The end of a stem, of a growing length, that most texts have, and how many have it.
std::pair<std::string, std::ptrdiff_t> Search(const Names& texts, const Names& stems,
                                              bool fromRear) {
  std::pair<std::string, std::ptrdiff_t> best;
  for (const std::string& stem : stems) {
    for (std::size_t length = 1; length < stem.size(); ++length) {
      const std::string end = End(stem, length, fromRear);
      const auto count = std::count_if(texts.begin(), texts.end(), [&](const std::string& text) {
        return End(text, length, fromRear) == end;
      });
      if (count >= best.second) {
        best = {end, count};
      }
    }
  }
  return best;
}

struct Selection {
  Names names, variableParts;
};

Selection Select(const Names& names, const std::string& common, bool fromRear) {
  Selection selected;
  for (const std::string& name : names) {
    const std::string stem = Stem(name);
    if (End(fromRear ? stem : name, common.size(), fromRear) == common) {
      const std::size_t rest = stem.size() - std::min(common.size(), stem.size());
      selected.names.push_back(name);
      selected.variableParts.push_back(End(stem, rest, !fromRear));
    }
  }
  return selected;
}

// The two numbers of each position, and the texts of the first positions.
struct TwoKeys {
  std::vector<std::array<int, 2>> numbers;
  Names texts;

  // Throws when a position without a text is to be moved.
  void ExchangeSort(std::size_t begin, std::size_t end, std::size_t key) {
    for (std::size_t p = begin; p + 1 < end; ++p) {
      for (std::size_t q = p + 1; q < end; ++q) {
        if (numbers[p][key] > numbers[q][key]) {
          std::swap(numbers[p], numbers[q]);
          std::swap(texts.at(p), texts.at(q));
        }
      }
    }
  }

  void Sort() {
    ExchangeSort(0, numbers.size(), 0);
    for (std::size_t run = 0, end = 0; run < numbers.size(); run = end) {
      while (end < numbers.size() && numbers[end][0] == numbers[run][0]) {
        ++end;
      }
      ExchangeSort(run, end, 1);
    }
  }
};

}  // namespace

LiteralResult OrderLiterally(const Names& names) {
  Names stems, withoutType;
  for (const std::string& name : names) {
    stems.push_back(Stem(name));
    withoutType.push_back(name.substr(0, name.rfind('.')));
  }
  const auto [front, holders] = Search(names, stems, false);
  LiteralResult result = {holders >= 2 ? front : "", {}};
  Selection selected = Select(names, result.commonPart, false);
  if (selected.names.size() < names.size() / 2) {
    result.commonPart = Search(withoutType, withoutType, true).first;
    selected = Select(names, result.commonPart, true);
  }
  TwoKeys keys;
  for (const std::string& part : selected.variableParts) {
    const std::size_t head = std::min(part.find('_'), part.size());
    std::string tail = part.substr(head);
    std::erase(tail, '_');
    keys.numbers.push_back({Number(part.substr(0, head)), Number(tail)});
    if (head < part.size()) {
      keys.texts.push_back(part);
    }
  }
  if (keys.texts.empty()) {
    auto sorted = keys.numbers;
    std::sort(sorted.begin(), sorted.end());
    for (const auto& number : sorted) {
      const auto first = std::find(keys.numbers.begin(), keys.numbers.end(), number);
      result.frames.push_back(
          selected.names.at(static_cast<std::size_t>(first - keys.numbers.begin())));
    }
    return result;
  }
  try {
    keys.Sort();
  } catch (const std::out_of_range&) {
    return result;
  }
  for (const std::string& text : keys.texts) {
    result.frames.push_back(result.commonPart + text + "." +
                            names[0].substr(names[0].rfind('.') + 1));
  }
  return result;
}

#include "sequence/name_pattern.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "sequence/ascii.h"

namespace animate {
namespace {

// What a number in a pattern is written as, and how many digits it has at least.
struct NumberSign {
  std::size_t length = 0;
  std::size_t digits = 0;
};

// The number that a pattern begins with.
std::optional<NumberSign> ReadNumberSign(std::string_view pattern) {
  if (pattern.starts_with('#')) {
    const std::size_t count = std::min(pattern.find_first_not_of('#'), pattern.size());
    return NumberSign{count, count};
  }
  if (!pattern.starts_with('%')) {
    return std::nullopt;
  }
  std::size_t end = 1;
  std::size_t digits = 0;
  for (; end < pattern.size() && end < 4 && IsDigit(pattern[end]); ++end) {
    digits = digits * 10 + static_cast<std::size_t>(pattern[end] - '0');
  }
  return end < pattern.size() && pattern[end] == 'd'
             ? std::optional<NumberSign>({end + 1, std::max<std::size_t>(digits, 1)})
             : std::nullopt;
}

// One character of UTF-8 from `at` on.
std::size_t EndOfCharacter(std::string_view text, std::size_t at) {
  for (++at; at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U; ++at) {
  }
  return at;
}

// Follows all ways to match at once: the places of the name that the pattern so far can end at.
class Places {
 public:
  explicit Places(std::string_view name) : name_(name), reached_(name.size() + 1, false) {
    reached_[0] = true;
  }

  bool IsAtEnd() const { return reached_.back(); }

  void TakeAny() {
    std::fill(std::find(reached_.begin(), reached_.end(), true), reached_.end(), true);
  }

  void TakeOne() {
    Move([&](std::size_t at, std::vector<bool>& next) {
      if (at < name_.size()) {
        next[EndOfCharacter(name_, at)] = true;
      }
    });
  }

  void TakeText(std::string_view text) {
    Move([&](std::size_t at, std::vector<bool>& next) {
      if (name_.substr(at, text.size()) == text) {
        next[at + text.size()] = true;
      }
    });
  }

  void TakeNumber(std::string_view sign, std::size_t digits) {
    Move([&](std::size_t at, std::vector<bool>& next) {
      if (name_.substr(at, sign.size()) == sign) {
        next[at + sign.size()] = true;
      }
      std::size_t end = at + (at < name_.size() && (name_[at] == '-' || name_[at] == '+') ? 1 : 0);
      for (std::size_t count = 1; end < name_.size() && IsDigit(name_[end]); ++count) {
        ++end;
        next[end] = next[end] || count >= digits;
      }
    });
  }

 private:
  template <typename Step>
  void Move(Step step) {
    std::vector<bool> next(reached_.size(), false);
    for (std::size_t at = 0; at < reached_.size(); ++at) {
      if (reached_[at]) {
        step(at, next);
      }
    }
    reached_ = std::move(next);
  }

  std::string_view name_;
  std::vector<bool> reached_;
};

}  // namespace

bool IsNamePattern(const std::string& text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '*' || text[at] == '?' || ReadNumberSign(std::string_view(text).substr(at))) {
      return true;
    }
  }
  return false;
}

bool MatchesPattern(const std::string& name, const std::string& pattern) {
  const std::string lowerName = LowerCase(name);
  const std::string lowerPattern = LowerCase(pattern);
  Places places(lowerName);
  for (std::string_view rest = lowerPattern; !rest.empty();) {
    std::size_t taken = 1;
    if (const auto number = ReadNumberSign(rest)) {
      taken = number->length;
      places.TakeNumber(rest.substr(0, taken), number->digits);
    } else if (rest[0] == '*') {
      places.TakeAny();
    } else if (rest[0] == '?') {
      places.TakeOne();
    } else {
      taken = EndOfCharacter(rest, 0);
      places.TakeText(rest.substr(0, taken));
    }
    rest.remove_prefix(taken);
  }
  return places.IsAtEnd();
}

}  // namespace animate

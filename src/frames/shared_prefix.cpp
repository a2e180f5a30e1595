#include "frames/shared_prefix.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

// All texts that begin with one character, and how far they agree.
struct Group {
  int holders = 0;
  const std::string* first = nullptr;
  std::size_t agreed = 0;
};

}  // namespace

// Lengthening a prefix never gains a holder, so no prefix beats the one-character prefixes, and
// those that reach the best count are exactly the prefixes that a largest group agrees on.
SharedPrefix FindSharedPrefix(const std::vector<PrefixCandidate>& candidates) {
  std::array<Group, 256> groups;
  const auto groupOf = [&groups](const std::string& text) -> Group& {
    return groups[static_cast<unsigned char>(text.front())];
  };
  for (const PrefixCandidate& candidate : candidates) {
    const std::string& text = candidate.text;
    if (text.empty()) {
      continue;
    }
    Group& group = groupOf(text);
    if (group.holders++ == 0) {
      group.first = &text;
      group.agreed = text.size();
    }
    const auto end = group.first->begin() + static_cast<std::ptrdiff_t>(group.agreed);
    const auto differing = std::mismatch(group.first->begin(), end, text.begin(), text.end()).first;
    group.agreed = static_cast<std::size_t>(differing - group.first->begin());
  }

  SharedPrefix best;
  for (const PrefixCandidate& candidate : candidates) {
    if (candidate.longestPrefix < 1) {
      continue;
    }
    const Group& group = groupOf(candidate.text);
    if (group.holders >= best.holders) {
      best.holders = group.holders;
      best.prefix = candidate.text.substr(
          0, std::min(group.agreed, static_cast<std::size_t>(candidate.longestPrefix)));
    }
  }
  return best;
}

// The words of the converter's command line.
#pragma once

#include <string>
#include <vector>

namespace animate {

using Words = std::vector<std::string>;

// Any number of lists of words as one.
template <typename... Parts>
Words Joined(const Parts&... parts) {
  Words all;
  (all.insert(all.end(), parts.begin(), parts.end()), ...);
  return all;
}

}  // namespace animate

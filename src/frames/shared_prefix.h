// The prefix that most texts of a list share.
#pragma once

#include <string>
#include <vector>

// A text that may lend prefixes of 1 to `longestPrefix` characters (none when that is below 1);
// it counts as a holder of other texts' prefixes in any case.
struct PrefixCandidate {
  std::string text;
  int longestPrefix = 0;
};

struct SharedPrefix {
  std::string prefix;
  int holders = 0;
};

// The prefix held by the most texts, the later text's and then the longer one among equals, and
// the number of texts that begin with it; empty and 0 when no text lends a prefix. The result is
// that of counting every prefix of every text against all texts, in time linear in their length.
SharedPrefix FindSharedPrefix(const std::vector<PrefixCandidate>& candidates);

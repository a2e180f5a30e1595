// Patterns for names, for shells that have none and for the habit of other programs.
#pragma once

#include <string>

namespace animate {

// Whether a text has something that makes it a pattern: `*`, `?`, `#`, `%d` or `%04d`.
bool IsNamePattern(const std::string& text);

// Whether a name fits a pattern, both in any case of ASCII letters: `*` stands for any characters,
// `?` for one, `%04d` and `####` for a number of four or more digits (or for the signs themselves),
// `%d` for one of any length; both with or without a sign in front.
bool MatchesPattern(const std::string& name, const std::string& pattern);

}  // namespace animate

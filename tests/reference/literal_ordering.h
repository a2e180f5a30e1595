// The frame discovery's rules carried out word for word, at any price: the reference that the
// program's own, faster ways are compared with.
#pragma once

#include <string>
#include <vector>

struct LiteralResult {
  // The common part at the end, which the search from the rear may have replaced.
  std::string commonPart;
  // The frame list without its folder; empty when a sort ran past the underscore texts.
  std::vector<std::string> frames;

  bool operator==(const LiteralResult&) const = default;
};

LiteralResult OrderLiterally(const std::vector<std::string>& names);

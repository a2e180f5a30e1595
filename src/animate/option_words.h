// The words of the command line, sorted by the options they belong to; none is read yet.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace animate {

class OptionWords {
 public:
  // Sorts the command line without the program's name. Throws a Failure of wrong use for an option
  // that there is not, with the one that may be meant, for one that is given twice, and for a value
  // that is missing or too many.
  explicit OptionWords(const std::vector<std::string>& arguments);

  // Whether an option is given, and its value; by its long name, "--rate".
  bool Has(const std::string& option) const { return values_.contains(option); }
  std::optional<std::string> Value(const std::string& option) const;

  // What belongs to no option: FRAMES and OUTPUT.
  const std::vector<std::string>& Paths() const { return paths_; }

 private:
  std::map<std::string, std::string> values_;
  std::vector<std::string> paths_;
};

// The option that is probably meant by a word that is none; empty when nothing is near.
std::string NearestOption(const std::string& word);

}  // namespace animate

// The frames under names that the converter takes without fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "film/film.h"
#include "platform/private_folder.h"

namespace animate {

// A private folder in which each frame that is shown has a link of its own, numbered from 1 without
// gaps. The converter runs in it, so that nothing of the folder's own path is in its parameters.
class Staging {
 public:
  // `onSheet` are the frames of the contact sheet, as indices into the film's; none without one.
  // Throws a Failure when the folder or a link cannot be made, and when links have to be copies and
  // there is no room for them.
  Staging(const Film& film, const std::vector<std::size_t>& onSheet);

  const std::filesystem::path& Folder() const { return folder_.Path(); }

  // The names of the links, and of those for the contact sheet, as the converter's pattern.
  const std::string& Pattern() const { return pattern_; }
  const std::string& SheetPattern() const { return sheetPattern_; }

  // Whether the file of a frame of `film`, the same one, was touched since the links stand: its
  // content may be another although its size and times are what they were.
  bool IsTouched(const Film& film) const;

 private:
  platform::PrivateFolder folder_;
  std::string pattern_;
  std::string sheetPattern_;
  std::vector<std::uint64_t> touched_;
};

}  // namespace animate

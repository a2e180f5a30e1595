// The frames under names that the converter takes without fail.
#pragma once

#include <string>

#include "animate/plan.h"
#include "platform/file_system.h"

namespace animate {

// A private folder in which each frame that is shown has a link of its own, numbered from 1 without
// gaps. The converter runs in it, so that nothing of the folder's own path is in its parameters.
class Staging {
 public:
  // Throws a Failure when the folder or a link cannot be made, and when links have to be copies and
  // there is no room for them.
  explicit Staging(const Plan& plan);

  const std::filesystem::path& Folder() const { return folder_.Path(); }

  // The link of the frame that is shown as number `number`, from 0 on.
  std::filesystem::path Link(std::size_t number) const;

  // The names of the links, and of those of the contact sheet, as the converter's pattern.
  const std::string& Pattern() const { return pattern_; }
  const std::string& SheetPattern() const { return sheetPattern_; }

  // How many frames are on the contact sheet.
  static std::size_t SheetCount(const Plan& plan);

 private:
  platform::PrivateFolder folder_;
  std::string pattern_;
  std::string sheetPattern_;
};

}  // namespace animate

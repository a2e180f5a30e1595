#include "animate/staging.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "animate/failure.h"

namespace animate {
namespace {

constexpr std::size_t kMostOnSheet = 48;

std::string Numbered(const std::string& pattern, std::size_t number) {
  char name[64];
  std::snprintf(&name[0], sizeof(name), pattern.c_str(), static_cast<int>(number));
  return &name[0];
}

std::uint64_t TotalSize(const Plan& plan, const std::vector<std::size_t>& shown) {
  std::uint64_t total = 0;
  for (const std::size_t index : shown) {
    total += plan.frames[index].status.size;
  }
  return total;
}

void LinkFrames(const Plan& plan, const std::vector<std::size_t>& shown,
                const std::filesystem::path& folder, const std::string& pattern) {
  bool hasRoom = false;
  for (std::size_t number = 1; number <= shown.size(); ++number) {
    StopIfInterrupted();
    const std::filesystem::path& frame = plan.frames[shown[number - 1]].path;
    const auto made = platform::LinkOrCopy(frame, folder / Numbered(pattern, number));
    if (!made) {
      throw Failure("\"" + platform::TextOfPath(frame.filename()) +
                    "\" can neither be linked nor copied into \"" + platform::TextOfPath(folder) +
                    "\"");
    }
    if (*made == platform::StandIn::kCopy && !hasRoom) {
      hasRoom = platform::FreeSpace(folder) > TotalSize(plan, shown);
      if (!hasRoom) {
        throw Failure("there is no room for copies of the frames in \"" +
                      platform::TextOfPath(folder.parent_path()) + "\"");
      }
    }
  }
}

// The indices of frames spread over all that are shown, the first and the last among them.
std::vector<std::size_t> Spread(const Plan& plan) {
  const std::size_t count = Staging::SheetCount(plan);
  std::vector<std::size_t> spread;
  for (std::size_t place = 0; place < count; ++place) {
    spread.push_back(plan.shown[place * (plan.shown.size() - 1) / (count - 1)]);
  }
  return spread;
}

}  // namespace

Staging::Staging(const Plan& plan)
    : pattern_("%08d." + plan.frameExtension), sheetPattern_("sheet%02d." + plan.frameExtension) {
  if (folder_.Path().empty()) {
    throw Failure("no folder can be made in the folder for temporary files");
  }
  LinkFrames(plan, plan.shown, folder_.Path(), pattern_);
  if (!plan.contactSheet.empty()) {
    LinkFrames(plan, Spread(plan), folder_.Path(), sheetPattern_);
  }
}

std::filesystem::path Staging::Link(std::size_t number) const {
  return folder_.Path() / Numbered(pattern_, number + 1);
}

std::size_t Staging::SheetCount(const Plan& plan) {
  return std::min(plan.shown.size(), kMostOnSheet);
}

}  // namespace animate

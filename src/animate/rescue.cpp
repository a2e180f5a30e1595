#include "animate/rescue.h"

#include <algorithm>
#include <string>
#include <vector>

#include "animate/report.h"
#include "film/failure.h"
#include "film/image_type.h"
#include "film/quoted.h"
#include "platform/file_system.h"
#include "text/frame_copies.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

constexpr char kRescuedStart[] = "rescued_";

bool IsCopy(const fs::path& name) {
  return platform::TextOfPath(name).rfind(&kFrameCopyStart[0], 0) == 0 && !ImageType(name).empty();
}

// What a copy is called as a frame.
std::string RescuedName(const fs::path& copy) {
  const std::string text = platform::TextOfPath(copy);
  return std::string(&kRescuedStart[0]).append(text, sizeof(kFrameCopyStart) - 1);
}

}  // namespace

void Rescue(const fs::path& folder, bool isQuiet) {
  std::vector<fs::path> names;
  for (platform::FolderEntry& entry :
       OrFail(platform::ListEntries(folder), "the folder " + Quoted(folder) + " cannot be read")) {
    if (entry.kind == platform::FileKind::kFile && IsCopy(entry.name)) {
      names.push_back(std::move(entry.name));
    }
  }
  if (names.empty()) {
    throw Failure("in " + Quoted(folder) + " there is nothing to rescue");
  }
  std::sort(names.begin(), names.end());
  std::size_t kept = 0;
  for (const fs::path& name : names) {
    const std::string frame = RescuedName(name);
    const auto renamed =
        platform::RenameWithoutReplacing(folder / name, folder / platform::PathFromText(frame));
    if (!renamed) {
      ++kept;
      PrintNote("not rescued: " + platform::TextOfPath(name) + ", it cannot become " + frame +
                ": " + renamed.Reason());
    }
  }
  if (!isQuiet) {
    PrintClosing(std::to_string(names.size() - kept) + " frames rescued\n");
  }
  if (kept != 0) {
    throw Failure(std::to_string(kept) + " copies keep their names");
  }
}

}  // namespace animate

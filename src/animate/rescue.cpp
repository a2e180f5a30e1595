#include "animate/rescue.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "animate/failure.h"
#include "animate/report.h"
#include "animate/sequence.h"
#include "platform/file_system.h"

namespace animate {
namespace {

constexpr char kCopyStart[] = "_console_qmbImgTemp_";
constexpr char kRescuedStart[] = "rescued_";

}  // namespace

void Rescue(const std::filesystem::path& folder, bool isQuiet) {
  auto names = platform::ListFiles(folder);
  if (!names) {
    throw Failure("the folder \"" + platform::TextOfPath(folder) + "\" cannot be read");
  }
  std::sort(names->begin(), names->end());
  std::size_t rescued = 0;
  std::size_t kept = 0;
  for (const std::filesystem::path& name : *names) {
    const std::string text = platform::TextOfPath(name);
    if (text.rfind(&kCopyStart[0], 0) != 0 || !IsImageName(name)) {
      continue;
    }
    const std::string frame = std::string(&kRescuedStart[0]).append(text, sizeof(kCopyStart) - 1);
    if (platform::RenameWithoutReplacing(folder / name, folder / platform::PathFromText(frame))) {
      ++rescued;
    } else {
      ++kept;
      std::string note = "not rescued: " + text;
      note += ", because " + frame + " is there or the folder cannot be written to";
      PrintNote(note);
    }
  }
  if (rescued + kept == 0) {
    throw Failure("in \"" + platform::TextOfPath(folder) + "\" there is nothing to rescue");
  }
  if (!isQuiet) {
    std::printf("%zu frames rescued\n", rescued);
  }
  if (kept != 0) {
    throw Failure(std::to_string(kept) + " copies keep their names");
  }
}

}  // namespace animate

#include "converter/staging.h"

#include <cstdint>
#include <cstdio>

#include "film/failure.h"
#include "film/interruption.h"
#include "film/quoted.h"
#include "platform/file_system.h"

namespace animate {
namespace {

std::string Numbered(const std::string& pattern, std::size_t number) {
  char name[64];
  std::snprintf(&name[0], sizeof(name), pattern.c_str(), static_cast<int>(number));
  return &name[0];
}

// The converter knows "tiff" only.
std::string LinkExtension(const Film& film) {
  return film.frameType == "tif" ? "tiff" : film.frameType;
}

std::uint64_t TotalSize(const Film& film, const std::vector<std::size_t>& shown) {
  std::uint64_t total = 0;
  for (const std::size_t index : shown) {
    total += film.frames[index].status.size;
  }
  return total;
}

void LinkFrames(const Film& film, const std::vector<std::size_t>& shown,
                const std::filesystem::path& folder, const std::string& pattern) {
  bool hasRoom = false;
  for (std::size_t number = 1; number <= shown.size(); ++number) {
    StopIfInterrupted();
    const std::filesystem::path& frame = film.frames[shown[number - 1]].path;
    const platform::StandIn made = OrFail(
        platform::LinkOrCopy(frame, folder / Numbered(pattern, number)),
        Quoted(frame.filename()) + " can neither be linked nor copied into " + Quoted(folder));
    if (made == platform::StandIn::kCopy && !hasRoom) {
      hasRoom = platform::FreeSpace(folder) > TotalSize(film, shown);
      if (!hasRoom) {
        throw Failure("there is no room for copies of the frames in " +
                      Quoted(folder.parent_path()));
      }
    }
  }
}

platform::PrivateFolder MakeFolder() {
  const auto [folder, variable] = platform::FindTemporaryPlace();
  return OrFail(platform::PrivateFolder::Make(),
                "no folder can be made in " + Quoted(folder) + ", the folder for temporary files" +
                    (variable.empty() ? "" : " that " + variable + " names"));
}

}  // namespace

Staging::Staging(const Film& film, const std::vector<std::size_t>& onSheet)
    : folder_(MakeFolder()),
      pattern_("%08d." + LinkExtension(film)),
      sheetPattern_("sheet%02d." + LinkExtension(film)) {
  LinkFrames(film, film.shown, folder_.Path(), pattern_);
  LinkFrames(film, onSheet, folder_.Path(), sheetPattern_);
}

}  // namespace animate

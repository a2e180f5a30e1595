#include "converter/staging.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "film/failure.h"
#include "film/interruption.h"
#include "film/quoted.h"
#include "platform/file_system.h"
#include "platform/input_file.h"

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

// Whether frames are turned in different ways, which some converters take for the start of another
// film.
bool HasSeveralTurns(const Film& film) {
  return std::any_of(film.frames.begin(), film.frames.end(),
                     [&](const Frame& frame) { return frame.turn != film.frames.front().turn; });
}

platform::Result<platform::StandIn> CopyWithoutTurn(const Frame& frame,
                                                    const std::filesystem::path& to) {
  const auto file = platform::InputFile::Open(frame.path);
  if (!file) {
    return platform::SystemError{file.Reason()};
  }
  std::string content = file->Read(0, static_cast<std::size_t>(file->Size()));
  if (frame.turnAt < content.size()) {
    content[static_cast<std::size_t>(frame.turnAt)] = '-';
  }
  if (const auto made = platform::CreateEmptyFile(to); !made) {
    return platform::SystemError{made.Reason()};
  }
  const auto copy = platform::OpenForNewContent(to);
  if (!copy) {
    return platform::SystemError{copy.Reason()};
  }
  std::fwrite(content.data(), 1, content.size(), copy->get());
  if (std::fflush(copy->get()) != 0) {
    return platform::SystemError{std::strerror(errno)};
  }
  return platform::StandIn::kCopy;
}

void LinkFrames(const Film& film, const std::vector<std::size_t>& shown,
                const std::filesystem::path& folder, const std::string& pattern) {
  bool hasRoom = false;
  const bool hasSeveralTurns = HasSeveralTurns(film);
  for (std::size_t number = 1; number <= shown.size(); ++number) {
    StopIfInterrupted();
    const Frame& frame = film.frames[shown[number - 1]];
    const std::filesystem::path name = folder / Numbered(pattern, number);
    const platform::StandIn made = OrFail(
        hasSeveralTurns && frame.turnAt != 0 ? CopyWithoutTurn(frame, name)
                                             : platform::LinkOrCopy(frame.path, name),
        Quoted(frame.path.filename()) + " can neither be linked nor copied into " + Quoted(folder));
    if (made == platform::StandIn::kCopy && !hasRoom) {
      hasRoom = platform::FreeSpace(folder) > TotalSize(film, shown);
      if (!hasRoom) {
        throw Failure("there is no room for copies of the frames in " +
                      Quoted(folder.parent_path()));
      }
    }
  }
}

// When each frame that is shown was last touched.
std::vector<std::uint64_t> TouchedOf(const Film& film) {
  std::vector<std::uint64_t> touched;
  touched.reserve(film.shown.size());
  for (const std::size_t index : film.shown) {
    touched.push_back(platform::QueryTouched(film.frames[index].path));
  }
  return touched;
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
  touched_ = TouchedOf(film);
}

bool Staging::IsTouched(const Film& film) const {
  return TouchedOf(film) != touched_;
}

}  // namespace animate

#include "animate/new_file.h"

#include <random>

#include "film/failure.h"
#include "film/quoted.h"
#include "platform/file_system.h"

namespace animate {
namespace {

constexpr char kStart[] = ".TessaraAnimate-";

// A name of its own in a folder.
std::filesystem::path UnusedName(const std::filesystem::path& folder) {
  std::random_device random;
  return folder / (&kStart[0] + std::to_string(random()) + std::to_string(random()));
}

}  // namespace

NewFile::NewFile(const std::filesystem::path& place)
    : place_(OrFail(platform::PlaceFor(place), Quoted(place) + " cannot be written")) {
  const std::filesystem::path folder = place_.parent_path();
  const std::filesystem::path first = UnusedName(folder);
  OrFail(platform::CreateEmptyFile(first),
         "the folder " + Quoted(folder) + " cannot be written to");
  path_ = first;
  path_ += place.extension();
  // Better now than after the work.
  if (const auto renamed = platform::RenameWithoutReplacing(first, path_); !renamed) {
    static_cast<void>(platform::DeleteOneFile(first));
    throw Failure("no file can be put in its place in the folder " + Quoted(folder) + ": " +
                  renamed.Reason());
  }
}

NewFile::~NewFile() {
  // Nothing can be done where one of these fails.
  if (!old_.empty()) {
    static_cast<void>(platform::PutInPlace(old_, place_, true));
  } else if (isForNow_) {
    static_cast<void>(platform::DeleteOneFile(place_));
  }
  if (!path_.empty()) {
    static_cast<void>(platform::DeleteOneFile(path_));
  }
}

void NewFile::PutInPlace(bool replace) {
  OrFail(platform::PutInPlace(path_, place_, replace),
         "the finished file cannot take its place as " + Quoted(place_));
  path_.clear();
}

void NewFile::PutInPlaceForNow(bool replace) {
  if (replace && platform::QueryStatus(place_).kind != platform::FileKind::kMissing) {
    const std::filesystem::path old = UnusedName(place_.parent_path());
    OrFail(platform::RenameWithoutReplacing(place_, old),
           Quoted(place_) + " cannot make room for the finished file");
    old_ = old;
  }
  PutInPlace(false);
  isForNow_ = true;
}

void NewFile::Keep() {
  if (!old_.empty()) {
    static_cast<void>(platform::DeleteOneFile(old_));
  }
  old_.clear();
  isForNow_ = false;
}

bool NewFile::IsName(const std::filesystem::path& name) {
  return platform::TextOfPath(name).rfind(&kStart[0], 0) == 0;
}

}  // namespace animate

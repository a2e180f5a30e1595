#include "animate/new_file.h"

#include <random>

#include "film/failure.h"
#include "film/quoted.h"
#include "platform/file_system.h"

namespace animate {
namespace {

constexpr char kStart[] = ".TessaraAnimate-";

}  // namespace

NewFile::NewFile(const std::filesystem::path& place)
    : place_(OrFail(platform::PlaceFor(place), Quoted(place) + " cannot be written")) {
  std::random_device random;
  const std::filesystem::path folder = place_.parent_path();
  const std::filesystem::path first =
      folder / (&kStart[0] + std::to_string(random()) + std::to_string(random()));
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
  if (!path_.empty()) {
    // Nothing can be done about one that stays.
    static_cast<void>(platform::DeleteOneFile(path_));
  }
}

void NewFile::PutInPlace(bool replace) {
  OrFail(platform::PutInPlace(path_, place_, replace),
         "the finished file cannot take its place as " + Quoted(place_));
  path_.clear();
}

bool NewFile::IsName(const std::filesystem::path& name) {
  return platform::TextOfPath(name).rfind(&kStart[0], 0) == 0;
}

}  // namespace animate

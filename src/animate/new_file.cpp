#include "animate/new_file.h"

#include <random>

#include "film/failure.h"
#include "film/quoted.h"
#include "platform/file_system.h"

namespace animate {
namespace {

constexpr char kStart[] = ".TessaraAnimate-";

}  // namespace

NewFile::NewFile(const std::filesystem::path& place) : place_(place) {
  std::random_device random;
  std::filesystem::path path =
      place.parent_path() / (&kStart[0] + std::to_string(random()) + std::to_string(random()));
  path += place.extension();
  OrFail(platform::CreateEmptyFile(path),
         "the folder " + Quoted(place.parent_path()) + " cannot be written to");
  path_ = path;
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

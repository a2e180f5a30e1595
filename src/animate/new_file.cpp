#include "animate/new_file.h"

#include <random>

#include "animate/failure.h"
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
  if (const std::string failure = platform::CreateEmptyFile(path); !failure.empty()) {
    throw Failure("the folder \"" + platform::TextOfPath(place.parent_path()) +
                  "\" cannot be written to: " + failure);
  }
  path_ = path;
}

NewFile::~NewFile() {
  if (!path_.empty()) {
    platform::DeleteOneFile(path_);
  }
}

void NewFile::PutInPlace(bool replace) {
  if (const std::string failure = platform::PutInPlace(path_, place_, replace); !failure.empty()) {
    throw Failure("the finished file cannot take its place as \"" + platform::TextOfPath(place_) +
                  "\": " + failure);
  }
  path_.clear();
}

bool NewFile::IsName(const std::filesystem::path& name) {
  return platform::TextOfPath(name).rfind(&kStart[0], 0) == 0;
}

}  // namespace animate

// A folder that nobody else can enter.
#pragma once

#include <filesystem>
#include <string>

#include "platform/result.h"

namespace platform {

// The system's folder for temporary files, and the environment variable that names it; empty where
// none does.
struct TemporaryPlace {
  std::filesystem::path folder;
  std::string variable;
};
TemporaryPlace FindTemporaryPlace();

// A new folder under the system's temporary one that its owner alone can enter. It goes, with the
// files in it, when its owner goes.
class PrivateFolder {
 public:
  static Result<PrivateFolder> Make();
  ~PrivateFolder();
  PrivateFolder(PrivateFolder&& other) noexcept;
  PrivateFolder& operator=(PrivateFolder&&) = delete;
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  explicit PrivateFolder(std::filesystem::path path) : path_(std::move(path)) {}

  // Empty once it was moved away.
  std::filesystem::path path_;
};

}  // namespace platform

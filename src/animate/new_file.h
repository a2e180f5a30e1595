// A file that takes its place only when it is finished.
#pragma once

#include <filesystem>

namespace animate {

// An empty file beside the place that it is for, or, when a link is there, beside what that leads
// to, under a name of its own with the same extension. Unless it was put in its place it is deleted
// when its owner goes.
class NewFile {
 public:
  // Throws a Failure when nothing can be put at `place`, as far as that can be seen before.
  explicit NewFile(const std::filesystem::path& place);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  const std::filesystem::path& Path() const { return path_; }

  // Puts the file in its place in one step, its content on the disk. Without `replace` a file that
  // has come there meanwhile stays. Throws a Failure when it is not in its place then.
  void PutInPlace(bool replace);

  // The same, but unless Keep is called what was there comes back when its owner goes. Between its
  // leaving and the coming of the new file nothing is there.
  void PutInPlaceForNow(bool replace);
  void Keep();

  // Whether a name is one that this class gives.
  static bool IsName(const std::filesystem::path& name);

 private:
  std::filesystem::path place_;
  std::filesystem::path path_;
  // What comes back, if anything.
  std::filesystem::path old_;
  bool isForNow_ = false;
};

}  // namespace animate

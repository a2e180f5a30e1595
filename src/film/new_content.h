// Writing the content of a file that is there.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "film/failure.h"
#include "platform/file_system.h"

namespace animate {

class NewContent {
 public:
  // Empties the file at `path`. Throws a Failure when it cannot be written.
  explicit NewContent(const std::filesystem::path& path)
      : file_(OrFail(platform::OpenForNewContent(path), "the animation cannot be written")) {}

  void Add(std::string_view bytes) {
    std::fwrite(bytes.data(), 1, bytes.size(), file_.get());
    size_ += bytes.size();
  }

  // How many bytes were added.
  std::uint64_t Size() const { return size_; }

  // Throws a Failure unless all that was added is written.
  void Finish() {
    if (std::fflush(file_.get()) != 0 || std::ferror(file_.get()) != 0) {
      throw Failure("the animation cannot be written, the disk may be full");
    }
  }

 private:
  platform::OwnedFile file_;
  std::uint64_t size_ = 0;
};

}  // namespace animate

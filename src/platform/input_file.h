// A file that is read at any place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>

#include "platform/file_status.h"
#include "platform/result.h"

namespace platform {

// Open as long as it lives. Others may change, replace or delete the file meanwhile.
class InputFile {
 public:
  static Result<InputFile> Open(const std::filesystem::path& path);
  ~InputFile();
  InputFile(InputFile&& other) noexcept;
  InputFile& operator=(InputFile&&) = delete;
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  // As it was when the file was opened.
  const FileStatus& Status() const { return status_; }

  // In bytes, then.
  std::uint64_t Size() const { return status_.size; }

  // Reads up to `count` bytes from `offset` on; fewer only at the end of the file or of what can be
  // read.
  std::string Read(std::uint64_t offset, std::size_t count) const;

 private:
  InputFile(std::intptr_t handle, FileStatus status)
      : handle_(handle), status_(std::move(status)) {}

  // The system's own handle, -1 for none.
  std::intptr_t handle_ = -1;
  FileStatus status_;
};

}  // namespace platform

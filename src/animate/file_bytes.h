// The bytes of a file, read as numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/file_system.h"

namespace animate {

// Random access to the bytes of a file, through a window that moves along.
class Bytes {
 public:
  explicit Bytes(const platform::InputFile& file) : file_(file), size_(file.Size()) {}

  std::uint64_t Size() const { return size_; }

  // The `count` bytes from `offset` on, fewer at the end of the file.
  std::string Text(std::uint64_t offset, std::size_t count) {
    std::string text;
    for (; text.size() < count && offset < size_; ++offset) {
      text += static_cast<char>(At(offset));
    }
    return text;
  }

  // The byte at `offset`, 0 after the end of the file.
  unsigned At(std::uint64_t offset) {
    if (offset < start_ || offset - start_ >= window_.size()) {
      if (offset >= size_) {
        return 0;
      }
      start_ = offset;
      window_ = file_.Read(offset, kWindow);
      if (window_.empty()) {
        return 0;
      }
    }
    return static_cast<unsigned char>(window_[static_cast<std::size_t>(offset - start_)]);
  }

  // An unsigned number of `count` bytes.
  std::uint32_t LittleEndian(std::uint64_t offset, int count) {
    std::uint32_t number = 0;
    for (int index = count - 1; index >= 0; --index) {
      number = number << 8 | At(offset + static_cast<std::uint64_t>(index));
    }
    return number;
  }
  std::uint32_t BigEndian(std::uint64_t offset, int count) {
    std::uint32_t number = 0;
    for (int index = 0; index < count; ++index) {
      number = number << 8 | At(offset + static_cast<std::uint64_t>(index));
    }
    return number;
  }

 private:
  static constexpr std::size_t kWindow = 4096;

  const platform::InputFile& file_;
  std::uint64_t size_;
  std::uint64_t start_ = 0;
  std::string window_;
};

}  // namespace animate

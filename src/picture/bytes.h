// The bytes of a file, read as numbers.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "film/size.h"
#include "platform/input_file.h"

namespace animate {

// Random access to the bytes of a file, through a window that moves along, or to bytes at hand.
class Bytes {
 public:
  // The file, or the memory that `content` is in, has to stay open, or there.
  explicit Bytes(const platform::InputFile& file) : file_(&file), size_(file.Size()) {}
  explicit Bytes(std::string_view content) : size_(content.size()), window_(content) {}

  std::uint64_t Size() const { return size_; }

  // The `count` bytes from `offset` on, fewer at the end of the file or of what can be read.
  std::string Text(std::uint64_t offset, std::size_t count) {
    std::string text;
    while (text.size() < count && offset < size_) {
      At(offset);
      // Nothing is at hand where the file cannot be read.
      if (offset < start_ || offset - start_ >= window_.size()) {
        break;
      }
      const auto place = static_cast<std::size_t>(offset - start_);
      const std::size_t more = std::min(count - text.size(), window_.size() - place);
      text.append(window_, place, more);
      offset += more;
    }
    return text;
  }

  // The byte at `offset`, 0 after the end of the file.
  unsigned At(std::uint64_t offset) {
    if (offset < start_ || offset - start_ >= window_.size()) {
      if (file_ == nullptr || offset >= size_) {
        return 0;
      }
      start_ = offset;
      window_ = file_->Read(offset, kWindow);
      if (window_.empty()) {
        return 0;
      }
    }
    return static_cast<unsigned char>(window_[static_cast<std::size_t>(offset - start_)]);
  }

  // An unsigned number of `count` bytes, up to 4.
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

  const platform::InputFile* file_ = nullptr;
  std::uint64_t size_;
  std::uint64_t start_ = 0;
  std::string window_;
};

// The size that a file says; sides beyond all that a program can count become the largest it can.
inline Size SizeOf(std::uint32_t width, std::uint32_t height) {
  constexpr std::uint32_t kMost = 0x7FFFFFFF;
  return {static_cast<int>(std::min(width, kMost)), static_cast<int>(std::min(height, kMost))};
}

}  // namespace animate

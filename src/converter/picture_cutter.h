// Pictures out of pieces of raw video.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace animate {

// Cuts what arrives in pieces into pictures of so many bytes each.
class PictureCutter {
 public:
  PictureCutter(std::size_t size, std::function<void(const std::string&)> picture)
      : size_(size), picture_(std::move(picture)) {}

  void Take(std::string_view piece) {
    while (!piece.empty()) {
      const std::string_view part = piece.substr(0, size_ - current_.size());
      current_ += part;
      piece.remove_prefix(part.size());
      if (current_.size() == size_) {
        picture_(current_);
        current_.clear();
      }
    }
  }

 private:
  std::size_t size_;
  std::function<void(const std::string&)> picture_;
  std::string current_;
};

}  // namespace animate

// Lines out of pieces of text.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace platform {

// Cuts what arrives in pieces into lines, which end with a line feed, a carriage return or both.
// Empty lines are left out.
class LineSplitter {
 public:
  explicit LineSplitter(std::function<void(const std::string&)> line) : line_(std::move(line)) {}

  void Take(std::string_view piece) {
    for (const char c : piece) {
      if (c == '\n' || c == '\r') {
        Finish();
      } else {
        current_ += c;
      }
    }
  }

  // Hands over what is left after the last line end.
  void Finish() {
    if (!current_.empty()) {
      line_(std::exchange(current_, {}));
    }
  }

 private:
  std::function<void(const std::string&)> line_;
  std::string current_;
};

}  // namespace platform

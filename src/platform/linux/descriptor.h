// Owning a file descriptor.
#pragma once

#include <unistd.h>

#include <utility>

namespace platform {

// A file descriptor, -1 for none, that is closed when its owner goes.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  ~Descriptor() { Close(); }
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool IsOpen() const { return number_ >= 0; }
  int Get() const { return number_; }

  // Closes it now, and says whether that went well: some file systems report lost data only then.
  bool Close() { return number_ < 0 || close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

}  // namespace platform

#include "gif/gif_input.h"

#include <algorithm>
#include <limits>

bool GifInput::Open(const std::string& path) {
  Close();
  file_ = platform::OpenFile(path, "rb");
  if (!file_) {
    return false;
  }
  // The buffer here is the only one that is needed.
  std::setvbuf(file_.get(), nullptr, _IONBF, 0);
  // A file that is the output as well grows while it is read; it ends where it ended when opened.
  unread_ = std::numeric_limits<std::uint64_t>::max();
  if (std::fseek(file_.get(), 0, SEEK_END) == 0) {
    const long length = std::ftell(file_.get());
    if (length >= 0) {
      unread_ = static_cast<std::uint64_t>(length);
    }
    std::rewind(file_.get());
  }
  return true;
}

void GifInput::OpenBytes(std::string_view file) {
  Close();
  bytes_ = file;
}

void GifInput::Close() {
  StopCopying();
  file_.reset();
  bytes_ = {};
  next_ = end_ = 0;
}

GifInput::Run GifInput::ReadRun(std::size_t most) {
  if (next_ == end_ && !Refill()) {
    return {};
  }
  const std::uint8_t* const start = &buffer_[next_];
  const std::size_t count = std::min(most, end_ - next_);
  next_ += count;
  return {start, start + count};
}

void GifInput::StartCopying(std::FILE* output) {
  copyOutput_ = output;
  uncopied_ = next_;
}

void GifInput::StopCopying() {
  WriteCopy();
  copyOutput_ = nullptr;
}

void GifInput::WriteCopy() {
  if (copyOutput_ != nullptr) {
    std::fwrite(buffer_.data() + uncopied_, 1, next_ - uncopied_, copyOutput_);
    uncopied_ = next_;
  }
}

bool GifInput::Refill() {
  WriteCopy();
  uncopied_ = next_ = end_ = 0;
  if (file_) {
    const std::uint64_t wanted = std::min<std::uint64_t>(buffer_.size(), unread_);
    end_ = std::fread(buffer_.data(), 1, static_cast<std::size_t>(wanted), file_.get());
    unread_ -= end_;
  } else {
    end_ = bytes_.copy(reinterpret_cast<char*>(buffer_.data()), buffer_.size());
    bytes_.remove_prefix(end_);
  }
  return end_ != 0;
}

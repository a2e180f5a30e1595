#include "gif/lzw_codes.h"

#include <algorithm>
#include <string_view>

#include "gif/gif_format.h"
#include "gif/lzw_strings.h"

namespace {

constexpr int kLargestWidth = 12;
constexpr std::size_t kLargestBlock = 255;

}  // namespace

LzwCodes::LzwCodes(int codeSize) : codeSize_(codeSize), width_(codeSize + 1) {
  Clear();
}

void LzwCodes::Write(int code) {
  Put(code);
  if (!first_ && next_ < LzwStrings::kLimit) {
    ++next_;
    if (next_ == 1 << width_ && width_ < kLargestWidth) {
      ++width_;
    }
  }
  first_ = false;
}

void LzwCodes::Clear() {
  Put(1 << codeSize_);
  next_ = (1 << codeSize_) + 2;
  width_ = codeSize_ + 1;
  first_ = true;
}

void LzwCodes::Append(const LzwCodes& rest) {
  Clear();
  // That one has begun with a clearing of its own.
  int left = codeSize_ + 1;
  for (const char byte : rest.bytes_) {
    const int skipped = std::min(left, 8);
    PutBits(static_cast<unsigned char>(byte) >> skipped, 8 - skipped);
    left -= skipped;
  }
  PutBits(rest.bits_ >> left, rest.bitsHeld_ - left);
  next_ = rest.next_;
  width_ = rest.width_;
  first_ = rest.first_;
}

std::string LzwCodes::Finish() {
  Put((1 << codeSize_) + 1);
  if (bitsHeld_ > 0) {
    bytes_ += static_cast<char>(bits_);
  }
  std::string data{static_cast<char>(codeSize_)};
  data.reserve(bytes_.size() + bytes_.size() / kLargestBlock + 3);
  for (std::string_view rest = bytes_; !rest.empty();) {
    const std::string_view block = rest.substr(0, kLargestBlock);
    data += static_cast<char>(block.size());
    data += block;
    rest.remove_prefix(block.size());
  }
  data += static_cast<char>(kGifTerminator);
  return data;
}

void LzwCodes::Put(int code) {
  PutBits(static_cast<std::uint64_t>(code), width_);
}

void LzwCodes::PutBits(std::uint64_t bits, int count) {
  bits_ |= bits << bitsHeld_;
  bitCount_ += static_cast<std::uint64_t>(count);
  for (bitsHeld_ += count; bitsHeld_ >= 8; bitsHeld_ -= 8) {
    bytes_ += static_cast<char>(bits_);
    bits_ >>= 8;
  }
}

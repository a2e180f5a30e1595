#include "picture/pnm.h"

#include <algorithm>
#include <cstdint>

namespace animate {
namespace {

// The numbers of the header, with blanks and comments between them.
class Header {
 public:
  explicit Header(Bytes& bytes) : bytes_(bytes) {}

  // The next number; 0 when there is none.
  std::uint32_t Next() {
    bool isComment = false;
    for (; at_ < bytes_.Size() && (isComment || !IsDigit()); ++at_) {
      isComment = bytes_.At(at_) == '#' || (isComment && bytes_.At(at_) != '\n');
    }
    std::uint32_t number = 0;
    constexpr std::uint32_t kMost = 100'000'000;
    for (; at_ < bytes_.Size() && IsDigit() && number < kMost; ++at_) {
      number = number * 10 + (bytes_.At(at_) - '0');
    }
    return number;
  }

  // Where the pixels begin: a single blank is between.
  std::uint64_t End() const { return at_ + 1; }

 private:
  bool IsDigit() { return bytes_.At(at_) >= '0' && bytes_.At(at_) <= '9'; }

  Bytes& bytes_;
  std::uint64_t at_ = 2;
};

}  // namespace

std::optional<PictureFacts> ReadPnm(Bytes& bytes) {
  // Bits, grey and colours: as text, and as bytes.
  const char kind = static_cast<char>(bytes.At(1));
  const bool isBits = kind == '1' || kind == '4';
  Header header(bytes);
  const std::uint32_t width = header.Next();
  const std::uint32_t height = header.Next();
  const bool isDeep = !isBits && header.Next() > 255;
  const std::uint64_t colours = kind == '6' ? 3 : 1;
  const std::uint64_t row =
      isBits ? (std::uint64_t{width} + 7) / 8 : std::uint64_t{width} * colours * (isDeep ? 2 : 1);
  if (kind >= '4' && row * height > bytes.Size() - std::min(header.End(), bytes.Size())) {
    return std::nullopt;
  }
  return PictureFacts{.size = SizeOf(width, height), .isDeep = isDeep};
}

}  // namespace animate

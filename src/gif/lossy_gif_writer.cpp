#include "gif/lossy_gif_writer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <utility>

#include "gif/area_to_draw.h"
#include "gif/in_parts.h"

namespace {

constexpr int kLeave = 1;
constexpr int kClear = 2;

// Transparent ones are all 0.
bool IsSame(const Colour& a, const Colour& b) {
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

int StayingError(const Colour& wanted, const Colour& shown) {
  return wanted.alpha == shown.alpha ? ColourDistance(wanted, shown) : LossyPixel::kNever;
}

}  // namespace

float BitPriceOf(int quality) {
  constexpr float kPriceOf80 = 6.5F;
  const float loss = static_cast<float>(100 - quality) / 20;
  return loss <= 1 ? kPriceOf80 * loss * loss : kPriceOf80 * std::exp2(1.6F * (loss - 1));
}

LossyGifWriter::LossyGifWriter(int width, int height, const FilmColours& film, float bitPrice,
                               GifSink sink)
    : width_(width),
      height_(height),
      film_(film),
      bitPrice_(bitPrice),
      sink_(std::move(sink)),
      tables_(film.TableFor(bitPrice), film.AreFew(), bitPrice) {}

void LossyGifWriter::Add(std::span<const Colour> picture, int delay) {
  if (pending_.empty()) {
    Start();
  } else {
    Draw(picture);
  }
  std::swap(before_, pending_);
  pending_.assign(picture.begin(), picture.end());
  delay_ = delay;
}

void LossyGifWriter::Finish() {
  // The last picture may be followed by any.
  Draw(pending_);
  WriteFrame();
  sink_(std::string{kGifTrailer});
}

void LossyGifWriter::Start() {
  screen_.assign(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_),
                 Colour{0, 0, 0, 0});
  pixels_.resize(screen_.size());
  lives_.reserve(screen_.size());
  for (std::size_t place = 0; place < screen_.size(); ++place) {
    lives_.push_back(film_.LifeOf(place));
  }
  sink_(GifHead(width_, height_, LossyTableBytes(tables_.Global())));
}

// Draws the pending picture so that `next` can follow it.
void LossyGifWriter::Draw(std::span<const Colour> next) {
  const auto [top, height] = RowsToDraw(next);
  const std::size_t first = static_cast<std::size_t>(top) * static_cast<std::size_t>(width_);
  const std::size_t count = static_cast<std::size_t>(height) * static_cast<std::size_t>(width_);
  const std::span<LossyPixel> pixels = std::span(pixels_).subspan(first, count);
  const FrameTables::Choice choice = tables_.Choose(
      pixels, [&](std::size_t begin, std::size_t end) { Weigh(next, first + begin, first + end); });
  auto [area, clears] = FindAreaToDraw(pixels, next.subspan(first, count), width_, bitPrice_);
  area.top += top;
  if (picturesDrawn_ == 0) {
    area = {0, 0, width_, height_};
  }
  ++picturesDrawn_;
  if (area.width == 0 && frame_.control.disposal != kClear) {
    frame_.delay += delay_;
    return;
  }
  // What the frame before clears stands as long as that does.
  area = area.width == 0 ? GifArea{0, top, 1, 1} : area;
  if (!frame_.image.empty()) {
    WriteFrame();
  }
  frame_.delay = delay_;
  frame_.control.disposal = clears ? kClear : kLeave;
  frame_.control.transparent = static_cast<int>(choice.colours->Table().size());
  frame_.image = ImageOf(area, choice);
  if (clears) {
    for (int row = area.top; row < area.top + area.height; ++row) {
      std::fill_n(screen_.begin() + static_cast<std::ptrdiff_t>(row) * width_ + area.left,
                  area.width, Colour{0, 0, 0, 0});
    }
  }
}

// The rows outside of which the screen shows what it should, now and for `next`: one at least.
LossyGifWriter::Rows LossyGifWriter::RowsToDraw(std::span<const Colour> next) const {
  if (picturesDrawn_ == 0) {
    return {0, height_};
  }
  const auto width = static_cast<std::size_t>(width_);
  const auto stands = [&](int row) {
    const std::size_t begin = static_cast<std::size_t>(row) * width;
    const std::span<const Colour> shown = std::span(screen_).subspan(begin, width);
    return AreSame(shown, std::span(pending_).subspan(begin, width)) &&
           AreSame(shown, next.subspan(begin, width));
  };
  int top = 0;
  int bottom = height_;
  while (top + 1 < bottom && stands(top)) {
    ++top;
  }
  while (bottom > top + 1 && stands(bottom - 1)) {
    --bottom;
  }
  return {top, bottom - top};
}

// Says of some pixels of the pending picture what they should be, and what errors count.
void LossyGifWriter::Weigh(std::span<const Colour> next, std::size_t begin, std::size_t end) {
  const auto left = static_cast<float>(film_.Pictures() - picturesDrawn_);
  for (std::size_t place = begin; place < end; ++place) {
    const Colour& wanted = pending_[place];
    LossyPixel& pixel = pixels_[place];
    pixel.wanted = wanted;
    pixel.drawn = IsOpaque(wanted) ? 0 : LossyPixel::kNever;
    pixel.staying = StayingError(wanted, screen_[place]);
    pixel.isNew = picturesDrawn_ == 0 || !IsSame(wanted, before_[place]);
    pixel.weight = IsSame(wanted, next[place]) ? std::max(1.0F, std::min(lives_[place], left)) : 1;
  }
}

// The blocks of an image of the area, from its descriptor on, which the screen then shows.
std::string LossyGifWriter::ImageOf(const GifArea& area, const FrameTables::Choice& choice) {
  const std::vector<Colour>& table = choice.colours->Table();
  LossyImage image;
  image.pixels = PixelsOf(area);
  image.colours = choice.colours;
  image.transparent = static_cast<int>(table.size());
  image.codeSize = std::max(2, LossyTableBits(table));
  image.bitPrice = bitPrice_;
  const LossyData data = DataOf(image, area);
  Show(area, data.entries, table);
  return GifDescriptor(area, choice.isOwn ? LossyTableBytes(table) : "") + data.bytes;
}

LossyData LossyGifWriter::DataOf(const LossyImage& image, const GifArea& area) {
  // In shorter ones there is nothing to see.
  constexpr std::size_t kPixelsOfLongByte = 5;
  LossyData data = EncodeLossily(image, PartsToEncode(image.pixels.size()));
  const bool isLong = data.entries.size() > data.bytes.size() * kPixelsOfLongByte;
  if (bitPrice_ == 0 || (isLong && exactTrials_.Next())) {
    Shorten(data, image, area);
  }
  return data;
}

// Compresses the same once more. Strings are chosen one by one at first; where they are long it may
// pay to see which is next.
void LossyGifWriter::Shorten(LossyData& data, const LossyImage& image, const GifArea& area) {
  constexpr std::size_t kLeastGainPart = 100;
  const std::size_t bytes = data.bytes.size();
  const TwoWayPixels ways = WaysOf(data.entries, image, area);
  StyledData exact = CompressInStyle(exactEncoder_, ways, style_);
  if (bitPrice_ == 0 || exact.bytes.size() < bytes) {
    if (ComparesStyles(imagesInStyles_++)) {
      exact = ShortestOfStyles(exactEncoder_, ways, std::move(exact));
      style_ = exact.style;
    }
  }
  if (exact.bytes.size() + bytes / kLeastGainPart < bytes) {
    exactTrials_.Helped();
  }
  if (exact.bytes.size() < bytes) {
    data.bytes = std::move(exact.bytes);
  }
}

// What the pixels of an image may be to show what these entries show.
TwoWayPixels LossyGifWriter::WaysOf(const std::vector<std::uint8_t>& entries,
                                    const LossyImage& image, const GifArea& area) const {
  const std::vector<Colour>& table = image.colours->Table();
  const auto transparent = static_cast<std::uint8_t>(image.transparent);
  TwoWayPixels ways = {entries, entries, static_cast<std::size_t>(area.width), image.codeSize};
  const Colour* shown = screen_.data() + PlaceOf(area);
  for (std::size_t row = 0; row < entries.size(); row += ways.width, shown += width_) {
    for (std::size_t column = 0; column < ways.width; ++column) {
      const std::size_t place = row + column;
      const bool stays = entries[place] == transparent;
      const std::uint8_t drawn = stays ? image.pixels[place].nearest : entries[place];
      if (drawn < table.size() && IsSame(shown[column], table[drawn])) {
        ways.one[place] = transparent;
        ways.other[place] = drawn;
      }
    }
  }
  return ways;
}

// In how many parts an image is encoded: in pairs, so that both cores are done at the same time.
// Parts of smaller images would have to learn too much again of what repeats itself.
std::size_t LossyGifWriter::PartsToEncode(std::size_t pixels) const {
  // Of a pair.
  constexpr std::size_t kLeastPixels = 60000;
  constexpr std::size_t kLeastBytes = 8000;
  constexpr std::size_t kBytes = 36000;
  // The next image is mostly as long as the last.
  const std::size_t bytes = frame_.image.size();
  const std::size_t most = std::min(pixels / kLeastPixels, bytes / kLeastBytes);
  return most == 0 ? 1 : 2 * std::clamp(bytes / kBytes, std::size_t{1}, most);
}

// The pixels of an area, which hold until the next call.
std::span<const LossyPixel> LossyGifWriter::PixelsOf(const GifArea& area) {
  const auto width = static_cast<std::size_t>(area.width);
  const auto height = static_cast<std::size_t>(area.height);
  const std::span<const LossyPixel> from = std::span(pixels_).subspan(PlaceOf(area));
  if (area.width == width_) {
    return from.first(height * width);
  }
  part_.resize(height * width);
  ForEachRow(height, width, [&](std::size_t row) {
    std::copy_n(from.begin() + static_cast<std::ptrdiff_t>(row) * width_, width,
                part_.begin() + static_cast<std::ptrdiff_t>(row * width));
  });
  return part_;
}

void LossyGifWriter::Show(const GifArea& area, const std::vector<std::uint8_t>& entries,
                          const std::vector<Colour>& table) {
  const auto width = static_cast<std::size_t>(area.width);
  const std::span<Colour> screen = std::span(screen_).subspan(PlaceOf(area));
  ForEachRow(static_cast<std::size_t>(area.height), width, [&](std::size_t row) {
    const std::span<Colour> shown = screen.subspan(row * static_cast<std::size_t>(width_), width);
    for (std::size_t column = 0; column < width; ++column) {
      if (const std::uint8_t entry = entries[row * width + column]; entry < table.size()) {
        shown[column] = table[entry];
      }
    }
  });
}

// Of the first pixel of an area.
std::size_t LossyGifWriter::PlaceOf(const GifArea& area) const {
  return static_cast<std::size_t>(area.top) * static_cast<std::size_t>(width_) +
         static_cast<std::size_t>(area.left);
}

// A frame that stands longer than one can is drawn more than once.
void LossyGifWriter::WriteFrame() {
  constexpr std::int64_t kShortestDelay = 2;
  constexpr std::int64_t kLongestDelay = 65535;
  while (frame_.delay > kLongestDelay) {
    GifControl part = frame_.control;
    part.disposal = kLeave;
    part.delay = static_cast<int>(std::min(kLongestDelay, frame_.delay - kShortestDelay));
    sink_(GifControlBlock(part) + frame_.image);
    frame_.delay -= part.delay;
  }
  frame_.control.delay = static_cast<int>(frame_.delay);
  sink_(GifControlBlock(frame_.control) + frame_.image);
}

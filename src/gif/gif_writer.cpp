#include "gif/gif_writer.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "gif/two_way_pixels.h"

namespace {

constexpr std::size_t kFramesAtOnce = 2;
// A thread costs more than compressing fewer pixels.
constexpr int kLeastForThread = 2048;
constexpr std::int64_t kShortestDelay = 2;
constexpr std::int64_t kLongestDelay = 65535;

}  // namespace

GifWriter::GifWriter(int width, int height, GifSink sink)
    : width_(width), height_(height), sink_(std::move(sink)), encoders_(kFramesAtOnce) {}

void GifWriter::Add(const IndexedPicture& picture, int delay) {
  auto next = std::make_shared<const GifPicture>(picture);
  if (!pending_) {
    Start(*next);
  } else if (pending_->shown == next->shown) {
    delay_ += delay;
    return;
  } else {
    WritePending(next->shown);
  }
  pending_ = std::move(next);
  delay_ = delay;
}

void GifWriter::Finish() {
  WritePending(pending_->shown);
  Collect(0);
  sink_(std::string{kGifTrailer});
}

// Writes what comes before the first frame.
void GifWriter::Start(const GifPicture& picture) {
  constexpr int kEightBitsAColour = 0x70;
  std::vector<GifColourUse> counts;
  counts.reserve(picture.palette.size());
  for (const GifColour colour : picture.palette) {
    counts.push_back({colour, 0});
  }
  for (const std::uint8_t index : picture.indices) {
    ++counts[index].pixels;
  }
  global_ = std::make_shared<const GifTable>(std::move(counts), true);
  before_ = std::make_shared<const GifScreen>(picture.shown.size(), kTransparent);
  const int packed = kGifTableFlag | kEightBitsAColour | (global_->Bits() - 1);
  sink_(kGifSignature);
  sink_(GifWord(width_) + GifWord(height_) + std::string{static_cast<char>(packed), 0, 0});
  sink_(global_->Bytes());
  sink_(GifLoopBlock(0));
}

// A picture that stands longer than a frame can is drawn again, where nothing changes.
void GifWriter::WritePending(const GifScreen& next) {
  while (delay_ > kLongestDelay) {
    const std::int64_t part = std::min(kLongestDelay, delay_ - kShortestDelay);
    WriteFrame(pending_->shown, static_cast<int>(part));
    delay_ -= part;
  }
  WriteFrame(next, static_cast<int>(delay_));
}

void GifWriter::WriteFrame(const GifScreen& next, int delay) {
  Collect(kFramesAtOnce - 1);
  GifStep step = PlanStep(before_, pending_, next, framesBegun_ == 0);
  GifFrame frame = {before_, pending_, step.area, delay, step.disposal};
  before_ = std::move(step.after);
  const bool isSmall = frame.area.width * frame.area.height < kLeastForThread;
  const auto launch = isSmall ? std::launch::deferred : std::launch::async;
  // Free again: frames are collected in their order.
  LzwEncoder& encoder = encoders_[framesBegun_ % kFramesAtOnce];
  frames_.push_back(std::async(launch, [&encoder, frame = std::move(frame), global = global_,
                                        style = style_, compares = ComparesStyles(framesBegun_)] {
    return WriteGifFrame(encoder, frame, *global, style, compares);
  }));
  ++framesBegun_;
}

// Waits for frames until at most so many are left, so which ones have been seen, and with them the
// style of the next, does not depend on how fast they are.
void GifWriter::Collect(std::size_t most) {
  for (; frames_.size() > most; frames_.pop_front()) {
    const GifFrameBlocks blocks = frames_.front().get();
    style_ = blocks.style;
    sink_(blocks.bytes);
  }
}

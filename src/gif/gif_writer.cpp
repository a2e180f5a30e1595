#include "gif/gif_writer.h"

#include <algorithm>
#include <utility>

#include "gif/gif_table.h"
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

void GifWriter::Add(GifScreen picture, const std::vector<Colour>& table, int delay) {
  if (!pending_) {
    before_ = std::make_shared<const GifScreen>(picture.size(), kTransparentEntry);
  } else if (*pending_ == picture) {
    delay_ += delay;
    return;
  } else {
    WritePending(picture);
  }
  if (!table_ || table_->size() < table.size()) {
    table_ = std::make_shared<const std::vector<Colour>>(table);
  }
  pending_ = std::make_shared<const GifScreen>(std::move(picture));
  delay_ = delay;
}

std::string GifWriter::Finish() {
  WritePending(*pending_);
  Collect(0);
  sink_(std::string{kGifTrailer});
  return GifHead(width_, height_, GifTableBytes(*table_, GifTableBits(table_->size())));
}

// A picture that stands longer than a frame can is drawn again, where nothing changes.
void GifWriter::WritePending(const GifScreen& next) {
  while (delay_ > kLongestDelay) {
    const std::int64_t part = std::min(kLongestDelay, delay_ - kShortestDelay);
    WriteFrame(*pending_, static_cast<int>(part));
    delay_ -= part;
  }
  WriteFrame(next, static_cast<int>(delay_));
}

void GifWriter::WriteFrame(const GifScreen& next, int delay) {
  Collect(kFramesAtOnce - 1);
  GifStep step = PlanStep(before_, pending_, next, width_, framesBegun_ == 0);
  GifFrame frame = {before_, pending_, width_, step.area, delay, step.disposal};
  before_ = std::move(step.after);
  const bool isSmall = frame.area.width * frame.area.height < kLeastForThread;
  const auto launch = isSmall ? std::launch::deferred : std::launch::async;
  // Free again: frames are collected in their order.
  LzwEncoder& encoder = encoders_[framesBegun_ % kFramesAtOnce];
  frames_.push_back(std::async(launch, [&encoder, frame = std::move(frame), table = table_,
                                        style = style_, compares = ComparesStyles(framesBegun_)] {
    return WriteGifFrame(encoder, frame, *table, style, compares);
  }));
  ++framesBegun_;
}

// Waits for frames until at most so many are left, so which ones have been seen, and with them the
// style of the next, does not depend on how fast they are.
void GifWriter::Collect(std::size_t most) {
  for (; frames_.size() > most; frames_.pop_front()) {
    const GifFrameBlocks blocks = frames_.front().get();
    style_ = blocks.bestStyle.value_or(style_);
    sink_(blocks.bytes);
  }
}

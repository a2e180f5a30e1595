#include "gif/gif_writer.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::size_t kFramesAtOnce = 2;
constexpr int kLeave = 1;
constexpr int kClear = 2;
constexpr int kRestore = 3;
constexpr int kShortestDelay = 2;
constexpr int kLongestDelay = 65535;

std::shared_ptr<const GifPicture> Shown(const IndexedPicture& picture) {
  auto shown = std::make_shared<GifPicture>();
  shown->width = picture.width;
  shown->height = picture.height;
  shown->indices = picture.indices;
  for (const Colour& colour : picture.palette) {
    shown->palette.push_back(ToGifColour(colour));
  }
  shown->shown.reserve(picture.indices.size());
  for (const std::uint8_t index : picture.indices) {
    shown->shown.push_back(shown->palette[index]);
  }
  return shown;
}

}  // namespace

GifWriter::GifWriter(int width, int height, GifSink sink)
    : width_(width), height_(height), sink_(std::move(sink)) {}

void GifWriter::Add(const IndexedPicture& picture, int delay) {
  auto next = Shown(picture);
  if (pending_ && pending_->shown == next->shown) {
    delay_ += delay;
    return;
  }
  if (pending_) {
    WritePending(next.get());
  } else {
    Start(*next);
  }
  pending_ = std::move(next);
  delay_ = delay;
}

void GifWriter::Finish() {
  WritePending(nullptr);
  Collect(0);
  sink_(std::string{kGifTrailer});
}

void GifWriter::Start(const GifPicture& picture) {
  std::array<std::size_t, 256> counts = {};
  for (const std::uint8_t index : picture.indices) {
    ++counts[index];
  }
  std::vector<std::pair<std::size_t, GifColour>> used;
  for (std::size_t index = 0; index < picture.palette.size(); ++index) {
    if (picture.palette[index] != kTransparent) {
      used.emplace_back(counts[index], picture.palette[index]);
    }
  }
  std::stable_sort(used.begin(), used.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<GifColour> colours;
  for (const auto& [count, colour] : used) {
    if (std::find(colours.begin(), colours.end(), colour) == colours.end()) {
      colours.push_back(colour);
    }
  }
  global_ = std::make_shared<GifTable>(colours);
  before_ = std::make_shared<GifScreen>(picture.shown.size(), kTransparent);
  sink_(kGifSignature);
  sink_(GifWord(width_) + GifWord(height_) +
        std::string{static_cast<char>(kGifTableFlag | 0x70 | (global_->Bits() - 1)), 0, 0});
  sink_(global_->Bytes());
  sink_(GifLoopBlock(0));
}

void GifWriter::WritePending(const GifPicture* next) {
  while (delay_ > kLongestDelay) {
    const auto part =
        static_cast<int>(std::min<std::int64_t>(kLongestDelay, delay_ - kShortestDelay));
    WriteFrame(*pending_, part);
    delay_ -= part;
  }
  WriteFrame(next == nullptr ? *pending_ : *next, static_cast<int>(delay_));
}

// Writes a frame that shows the pending picture, and leaves what `next` can follow.
void GifWriter::WriteFrame(const GifPicture& next, int delay) {
  const GifScreen& before = *before_;
  const GifScreen& now = pending_->shown;
  GifFrame frame;
  frame.before = before_;
  frame.picture = pending_;
  frame.delay = delay;
  frame.disposal = kLeave;
  frame.area = first_ ? GifArea{0, 0, width_, height_} : ChangedArea(before, now, width_);
  // How many pixels the next frame has to draw after each disposal.
  std::size_t afterLeave = 0;
  std::size_t afterRestore = 0;
  bool canLeave = true;
  bool canRestore = !first_;
  GifScreen kept;
  for (std::size_t place = 0; place < now.size(); ++place) {
    const GifColour colour = next.shown[place];
    afterLeave += colour != now[place] ? 1 : 0;
    afterRestore += colour != before[place] ? 1 : 0;
    canLeave &= colour != kTransparent || now[place] == kTransparent;
    canRestore &= colour != kTransparent || before[place] == kTransparent;
  }
  auto after = std::shared_ptr<const GifScreen>(pending_, &pending_->shown);
  if (!canLeave) {
    kept = now;
    for (std::size_t place = 0; place < now.size(); ++place) {
      kept[place] = next.shown[place] == kTransparent ? kTransparent : now[place];
    }
    GifArea cleared = Union(frame.area, ChangedArea(now, kept, width_));
    frame.disposal = kClear;
    auto screen = std::make_shared<GifScreen>(now);
    for (int row = 0; row < cleared.height; ++row) {
      std::fill_n(screen->begin() + (cleared.top + row) * width_ + cleared.left, cleared.width,
                  kTransparent);
    }
    std::size_t afterClear = 0;
    for (std::size_t place = 0; place < now.size(); ++place) {
      afterClear += next.shown[place] != (*screen)[place] ? 1 : 0;
    }
    if (canRestore && afterRestore < afterClear) {
      frame.disposal = kRestore;
      after = before_;
    } else {
      frame.area = cleared;
      after = screen;
    }
  } else if (canRestore && afterRestore < afterLeave) {
    frame.disposal = kRestore;
    after = before_;
  }
  if (frame.area.width == 0) {
    frame.area = {0, 0, 1, 1};
  }
  before_ = after;
  first_ = false;
  Collect(kFramesAtOnce - 1);
  frames_.push_back(std::async(
      std::launch::async, [frame, global = global_] { return GifFrameBlocks(frame, *global); }));
}

void GifWriter::Collect(std::size_t most) {
  while (frames_.size() > most) {
    sink_(frames_.front().get());
    frames_.pop_front();
  }
}

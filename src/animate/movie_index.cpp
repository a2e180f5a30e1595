#include "animate/movie_index.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "animate/file_bytes.h"

namespace animate {
namespace {

// A named part of the file; what is in it goes from `start` to `end`.
struct Box {
  std::string name;
  std::uint64_t start = 0;
  std::uint64_t end = 0;
};
using Boxes = std::vector<Box>;

std::uint64_t LongNumber(Bytes& bytes, std::uint64_t offset) {
  return std::uint64_t{bytes.BigEndian(offset, 4)} << 32 | bytes.BigEndian(offset + 4, 4);
}

// The boxes one after the other between two places; none when they do not fill it exactly.
Boxes ReadBoxes(Bytes& bytes, std::uint64_t start, std::uint64_t end) {
  constexpr std::uint64_t kHeader = 8;
  constexpr std::uint64_t kLongHeader = 16;
  Boxes boxes;
  while (start < end) {
    std::uint64_t header = kHeader;
    std::uint64_t length = bytes.BigEndian(start, 4);
    if (length == 1) {
      header = kLongHeader;
      length = LongNumber(bytes, start + kHeader);
    }
    if (length < header || length > end - start) {
      return {};
    }
    boxes.push_back({bytes.Text(start + 4, 4), start + header, start + length});
    start += length;
  }
  return boxes;
}

// The first box at the end of a path of names; an empty one when there is none.
Box Find(Bytes& bytes, Box box, const std::vector<std::string_view>& path) {
  for (const std::string_view name : path) {
    const Boxes inside = ReadBoxes(bytes, box.start, box.end);
    const auto found = std::find_if(inside.begin(), inside.end(),
                                    [&](const Box& child) { return child.name == name; });
    if (found == inside.end()) {
      return {};
    }
    box = *found;
  }
  return box;
}

// Whether the pieces that the tables of a track name all lie in the data.
bool HasItsData(Bytes& bytes, const Box& tables, const Boxes& top, std::size_t frames) {
  const Box sizes = Find(bytes, tables, {"stsz"});
  const Box groups = Find(bytes, tables, {"stsc"});
  Box chunks = Find(bytes, tables, {"stco"});
  const bool isLong = chunks.name.empty();
  if (isLong) {
    chunks = Find(bytes, tables, {"co64"});
  }
  const std::uint32_t common = bytes.BigEndian(sizes.start + 4, 4);
  const std::uint64_t chunkCount = std::min<std::uint64_t>(
      bytes.BigEndian(chunks.start + 4, 4), (chunks.end - chunks.start) / (isLong ? 8 : 4));
  const std::uint32_t groupCount = bytes.BigEndian(groups.start + 4, 4);
  std::size_t frame = 0;
  std::uint32_t group = 0;
  for (std::uint64_t chunk = 0; chunk < chunkCount && frame < frames; ++chunk) {
    // A group begins with a chunk, counted from 1, and says how many frames each of its chunks has.
    const auto groupAt = [&](std::uint32_t index) { return groups.start + 8 + 12ULL * index; };
    if (group + 1 < groupCount && bytes.BigEndian(groupAt(group + 1), 4) == chunk + 1) {
      ++group;
    }
    const std::uint64_t start = isLong ? LongNumber(bytes, chunks.start + 8 + 8 * chunk)
                                       : bytes.BigEndian(chunks.start + 8 + 4 * chunk, 4);
    std::uint64_t end = start;
    std::uint32_t left = bytes.BigEndian(groupAt(group) + 4, 4);
    for (; left > 0 && frame < frames; --left, ++frame) {
      end += common != 0 ? common : bytes.BigEndian(sizes.start + 12 + 4 * frame, 4);
    }
    if (std::none_of(top.begin(), top.end(), [&](const Box& box) {
          return box.name == "mdat" && box.start <= start && end <= box.end;
        })) {
      return false;
    }
  }
  return frame == frames;
}

}  // namespace

std::optional<MovieIndex> ReadMovieIndex(const std::filesystem::path& path) {
  const platform::InputFile file(path);
  Bytes bytes(file);
  const Boxes top = ReadBoxes(bytes, 0, bytes.Size());
  const Box track = Find(bytes, {"", 0, bytes.Size()}, {"moov", "trak"});
  const Box header = Find(bytes, track, {"mdia", "mdhd"});
  const Box tables = Find(bytes, track, {"mdia", "minf", "stbl"});
  const Box description = Find(bytes, tables, {"stsd"});
  const Box times = Find(bytes, tables, {"stts"});
  const bool hasLongTimes = bytes.At(header.start) == 1;
  const std::uint32_t rate = bytes.BigEndian(header.start + (hasLongTimes ? 20 : 12), 4);
  if (tables.name.empty() || rate == 0) {
    return std::nullopt;
  }
  MovieIndex index;
  index.tick = 1.0 / rate;
  index.size = {static_cast<int>(bytes.BigEndian(description.start + 40, 2)),
                static_cast<int>(bytes.BigEndian(description.start + 42, 2))};
  // Runs of frames that stand equally long.
  const std::uint32_t runs = bytes.BigEndian(times.start + 4, 4);
  std::uint32_t last = 0;
  for (std::uint64_t at = times.start + 8; at < times.start + 8 + 8ULL * runs && at < times.end;
       at += 8) {
    const std::uint32_t count = bytes.BigEndian(at, 4);
    last = bytes.BigEndian(at + 4, 4);
    index.frames += count;
    index.span += static_cast<long long>(count) * last;
  }
  index.span -= last;
  if (!HasItsData(bytes, tables, top, index.frames)) {
    return std::nullopt;
  }
  return index;
}

}  // namespace animate

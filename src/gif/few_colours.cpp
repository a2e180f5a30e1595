#include "gif/few_colours.h"

#include <algorithm>
#include <numeric>
#include <utility>

std::optional<GifScreen> FewColours::EntriesOf(std::span<const Colour> picture) {
  const bool isFirst = table_.size() == 1;
  GifScreen entries(picture.size());
  GifColour last = kTransparent;
  std::uint8_t entry = 0;
  for (std::size_t place = 0; place < picture.size(); ++place) {
    if (const GifColour colour = ToGifColour(picture[place]); colour != last) {
      const std::optional<std::uint8_t> found = EntryOf(picture[place]);
      if (!found) {
        areAll_ = false;
        return std::nullopt;
      }
      last = colour;
      entry = *found;
    }
    entries[place] = entry;
  }
  if (isFirst) {
    SortByUse(entries);
  }
  return entries;
}

// Nothing for a new colour that has no place.
std::optional<std::uint8_t> FewColours::EntryOf(const Colour& colour) {
  const GifColour number = ToGifColour(colour);
  if (number == kTransparent) {
    return kTransparentEntry;
  }
  Slot& slot = SlotOf(number);
  if (slot.colour == kTransparent) {
    if (table_.size() > kMost) {
      return std::nullopt;
    }
    slot = {number, static_cast<std::uint8_t>(table_.size())};
    table_.push_back(colour);
  }
  return slot.entry;
}

// The slot of a colour, or the one where it has to be.
FewColours::Slot& FewColours::SlotOf(GifColour colour) {
  std::size_t slot = colour * 0x9E3779B1U >> (32 - kSlotBits);
  while (slots_[slot].colour != kTransparent && slots_[slot].colour != colour) {
    slot = (slot + 1) % kSlots;
  }
  return slots_[slot];
}

// Gives the colours other entries, also in those of the one picture that there is.
void FewColours::SortByUse(GifScreen& entries) {
  std::vector<std::size_t> pixels(table_.size());
  for (const std::uint8_t entry : entries) {
    ++pixels[entry];
  }
  std::vector<std::uint8_t> order(table_.size());
  std::iota(order.begin(), order.end(), std::uint8_t{0});
  std::stable_sort(order.begin() + 1, order.end(),
                   [&](std::uint8_t a, std::uint8_t b) { return pixels[a] > pixels[b]; });
  std::vector<std::uint8_t> entryOf(table_.size());
  std::vector<Colour> sorted;
  sorted.reserve(table_.size());
  for (const std::uint8_t old : order) {
    entryOf[old] = static_cast<std::uint8_t>(sorted.size());
    sorted.push_back(table_[old]);
  }
  table_ = std::move(sorted);
  for (std::size_t entry = 1; entry < table_.size(); ++entry) {
    SlotOf(ToGifColour(table_[entry])).entry = static_cast<std::uint8_t>(entry);
  }
  for (std::uint8_t& entry : entries) {
    entry = entryOf[entry];
  }
}

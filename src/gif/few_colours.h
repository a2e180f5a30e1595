// The colours of pictures that have few of them in all.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "gif/colour.h"
#include "gif/gif_screen.h"

class FewColours {
 public:
  // One entry of 256 is left to transparent pixels.
  static constexpr std::size_t kMost = 255;

  // Returns the pixels of the next picture as entries of the table; nothing when that has no place
  // for all their colours, and then none is asked for after it. Alpha is 0 or 255.
  std::optional<GifScreen> EntriesOf(std::span<const Colour> picture);

  // A transparent entry and, behind it, the opaque colours of all pictures: those of the first one
  // by how many pixels they have, since low entries make narrow codes, then others as they come. An
  // entry that has been given stays what it is.
  const std::vector<Colour>& Table() const { return table_; }

  // Whether it has all colours of the pictures.
  bool AreAll() const { return areAll_; }

 private:
  // Twice as many as there can be colours, and twice that, so that searches are short.
  static constexpr int kSlotBits = 10;
  static constexpr std::size_t kSlots = std::size_t{1} << kSlotBits;

  struct Slot {
    GifColour colour = kTransparent;
    std::uint8_t entry = 0;
  };

  Slot& SlotOf(GifColour colour);
  std::optional<std::uint8_t> EntryOf(const Colour& colour);
  void SortByUse(GifScreen& entries);

  std::vector<Colour> table_ = {{0, 0, 0, 0}};
  bool areAll_ = true;
  // A hash table of the opaque colours; a transparent one is a free slot.
  std::array<Slot, kSlots> slots_ = {};
};

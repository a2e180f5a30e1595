// The strings of pixels that an LZW encoder and its decoder know alike.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

// A tree: each string is a shorter one and a pixel more, each has a code, and the strings of one
// pixel have its value as their code.
class LzwStrings {
 public:
  // Codes are below this: they have at most 12 bits.
  static constexpr int kLimit = 4096;
  static constexpr int kNone = -1;

  LzwStrings();

  // Forgets all strings but those of one pixel, whose values are below `pixelValues`, 4 to 256.
  void Clear(int pixelValues);

  // The code of the string `code` with `pixel` after it; kNone where it is not known.
  int Longer(int code, int pixel) const {
    const std::uint32_t key = KeyOf(code, pixel);
    for (std::size_t slot = SlotOf(key); slots_[slot] != 0; slot = (slot + 1) % kSlots) {
      if (slots_[slot] >> kCodeBits == key) {
        return static_cast<int>(slots_[slot] % kLimit);
      }
    }
    return kNone;
  }

  // Gives the string `code` with `pixel` after it the code `added`, which no string has; where that
  // string is known already it keeps its code.
  void Add(int code, int pixel, int added);

  // The first and the last pixel of a string, the code of the string without the last one, and the
  // number of its pixels.
  int FirstOf(int code) const { return strings_[Place(code)].first; }
  int LastOf(int code) const { return links_[Place(code)].last; }
  int ShorterOf(int code) const { return strings_[Place(code)].shorter; }
  int LengthOf(int code) const { return strings_[Place(code)].length; }

  // The strings that are one with a pixel more, one after the other: the last made of them, and the
  // one made before `code`, which is one of them. kNone where there is none.
  int LastLonger(int code) const { return lastLonger_[Place(code)]; }
  int LongerBefore(int code) const { return links_[Place(code)].longerBefore; }

 private:
  static constexpr std::size_t kSlots = 16384;
  static constexpr int kCodeBits = 12;

  struct String {
    std::uint16_t shorter;
    std::uint16_t length;
    std::uint8_t first;
  };

  // What a search goes along, apart from the rest, so that it stays in the cache.
  struct Link {
    std::int16_t longerBefore;
    std::uint8_t last;
  };

  static std::size_t Place(int code) { return static_cast<std::size_t>(code); }
  static std::uint32_t KeyOf(int code, int pixel) {
    return static_cast<std::uint32_t>(code << 8 | pixel);
  }
  static std::size_t SlotOf(std::uint32_t key) { return key * 0x9E3779B1U >> 18; }

  // A hash table of the longer strings: a key, with its code in the low bits. 0 is a free slot: no
  // longer string has the code 0.
  std::array<std::uint32_t, kSlots> slots_ = {};
  // The slots that are not free.
  std::vector<std::size_t> taken_;
  std::array<String, kLimit> strings_ = {};
  std::array<Link, kLimit> links_ = {};
  std::array<std::int16_t, kLimit> lastLonger_;
};

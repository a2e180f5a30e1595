#include "gif/lzw_strings.h"

LzwStrings::LzwStrings() {
  lastLonger_.fill(kNone);
}

void LzwStrings::Clear(int pixelValues) {
  for (const std::size_t slot : taken_) {
    lastLonger_[strings_[slots_[slot] % kLimit].shorter] = kNone;
    slots_[slot] = 0;
  }
  taken_.clear();
  for (int pixel = 0; pixel < pixelValues; ++pixel) {
    const auto value = static_cast<std::uint8_t>(pixel);
    strings_[Place(pixel)] = {0, 1, value};
    links_[Place(pixel)] = {kNone, value};
  }
}

void LzwStrings::Add(int code, int pixel, int added) {
  const String& shorter = strings_[Place(code)];
  strings_[Place(added)] = {static_cast<std::uint16_t>(code),
                            static_cast<std::uint16_t>(shorter.length + 1), shorter.first};
  links_[Place(added)] = {kNone, static_cast<std::uint8_t>(pixel)};
  const std::uint32_t key = KeyOf(code, pixel);
  std::size_t slot = SlotOf(key);
  for (; slots_[slot] != 0; slot = (slot + 1) % kSlots) {
    if (slots_[slot] >> kCodeBits == key) {
      return;
    }
  }
  taken_.push_back(slot);
  slots_[slot] = key << kCodeBits | static_cast<std::uint32_t>(added);
  links_[Place(added)].longerBefore = lastLonger_[Place(code)];
  lastLonger_[Place(code)] = static_cast<std::int16_t>(added);
}

// The size of a picture.
#pragma once

namespace animate {

// In pixels.
struct Size {
  int width = 0;
  int height = 0;

  bool operator==(const Size&) const = default;
};

}  // namespace animate

// Feeds arbitrary bytes to the readers of pictures. Nothing is said about what they find, but that
// they find it in the bytes that are there, in a time that the bytes limit.
#include <cstdint>
#include <string_view>

#include "picture/picture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  animate::Bytes content(std::string_view(reinterpret_cast<const char*>(data), size));
  for (const char* name :
       {"a.png", "a.jpg", "a.gif", "a.bmp", "a.tif", "a.webp", "a.pnm", "a.tga"}) {
    // Where the name says another type the next one is tried.
    if (animate::LookAtContent(content, name)) {
      break;
    }
  }
  return 0;
}

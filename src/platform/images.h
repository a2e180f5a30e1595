// Image files, read and written by GDI+.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace platform {

// The class identifier of an encoder, as its bytes lie in memory.
using ImageEncoder = std::array<std::uint8_t, 16>;

// Finds the first encoder for a MIME type, such as "image/gif", and sets `encoder` to its
// identifier. Returns its index in GDI+'s list; -1, with `encoder` left as it is, when there is
// none or GDI+ has not been started.
int FindImageEncoder(const std::wstring& mimeType, ImageEncoder& encoder);

// Loads the image file `from` and saves it as the file `to` with the encoder and no parameters for
// it. Returns whether both were done.
bool ConvertImage(const std::string& from, const std::string& to, const ImageEncoder& encoder);

}  // namespace platform

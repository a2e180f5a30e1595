// Image files, read and written by GDI+.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace platform {

// The class identifier of an encoder, as its bytes lie in memory.
using ImageEncoder = std::array<std::uint8_t, 16>;

// Finds the first encoder for a MIME type, such as "image/gif". Returns its identifier; nothing
// when there is none or GDI+ has not been started.
std::optional<ImageEncoder> FindImageEncoder(const std::wstring& mimeType);

// Loads the image file `from` and saves it as the file `to` with the encoder and no parameters for
// it. Returns whether it could be loaded; what cannot be saved is missing, or nothing that a reader
// takes.
bool ConvertImage(const std::string& from, const std::string& to, const ImageEncoder& encoder);

}  // namespace platform

// Reads AVI files back, byte by byte and without the system's own AVI services.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct AviStream {
  // The "strh" and "strf" chunks.
  std::string header;
  std::string format;
  // The samples, one a chunk.
  std::vector<std::string> chunks;

  // The field of the header at `offset`, and the whole content of the chunks.
  std::uint32_t HeaderField(std::size_t offset) const;
  std::string Content() const;
};

// The streams of the AVI file at `path`; none when it is missing.
std::vector<AviStream> ReadAvi(const std::string& path);

// The low `bytes` bytes of a number as they stand in a file.
std::string LittleEndian(std::uint32_t number, int bytes);

// Image and AVI files that tests write and read without the system's own services.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The low `size` bytes of a number as they stand in a file.
std::string LittleEndian(std::uint32_t number, int size);

// `size` bytes that `seed` chooses.
std::string Bytes(std::size_t size, int seed);

// Opaque pixels of 32 bits, and a bitmap file of `width` pixels a row that holds them.
std::string Pixels(std::size_t count, int seed);
void WriteBitmapFile(const std::string& path, int width, const std::string& pixels);

struct AviStream {
  // The "strh" and "strf" chunks.
  std::string header;
  std::string format;
  // The samples, one a chunk, and joined.
  std::vector<std::string> chunks;
  std::string content;
};

// The streams of the AVI file at `path`; none when it is missing.
std::vector<AviStream> ReadAvi(const std::string& path);

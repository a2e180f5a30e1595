// Image and AVI files that tests write and read without the system's own services.
#pragma once

#include <string>
#include <vector>

// The low `size` bytes of a number as they stand in a file.
std::string LittleEndian(int number, int size);

// `size` bytes that `seed` chooses.
std::string Bytes(std::size_t size, int seed);

// Opaque pixels of 32 bits, and a bitmap file of `width` pixels a row that holds them.
std::string Pixels(std::size_t count, int seed);
std::string BitmapFile(int width, const std::string& pixels);

struct AviStream {
  // The "strh" and "strf" chunks; the samples joined, and one a chunk.
  std::string header, format, content;
  std::vector<std::string> chunks;
};

// The streams of the AVI file at `path`; none when it is missing.
std::vector<AviStream> ReadAvi(const std::string& path);

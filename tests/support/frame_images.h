// Frames for tests that need real images.
#pragma once

#include <string>

// Writes a bitmap file of 24 bits a pixel; `seed` chooses its colours.
void WriteFrameImage(const std::string& path, int width, int height, int seed);

// The pixels of that image from the lowest row up: blue, green, red and 255 for each.
std::string FrameImagePixels(int width, int height, int seed);

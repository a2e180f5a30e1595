#include "gif/gif_merger.h"

#include <cstddef>
#include <cstdlib>

#include "gif/gif_format.h"

GifFrameResult GifMerger::AppendFile(const std::string& path, std::FILE* output, bool first) {
  if (!input_.Open(path)) {
    std::fprintf(settings.messages, "Can't open %s for reading.\n", path.c_str());
    return GifFrameResult::kNotOpened;
  }
  return AppendInput(output, first);
}

GifFrameResult GifMerger::AppendBytes(std::string_view file, std::FILE* output, bool first) {
  input_.OpenBytes(file);
  return AppendInput(output, first);
}

GifFrameResult GifMerger::AppendInput(std::FILE* output, bool first) {
  output_ = output;
  ReadScreenHeader(first);
  auto result = GifFrameResult::kNoImage;
  if (FindImage()) {
    WriteByte(kGifImage);
    ReadImageDescriptor(first);
    follower_.messages = settings.messages;
    follower_.debug = settings.debug;
    if (follower_.CopyImageData(input_, output)) {
      WriteByte(kGifTerminator);
      result = GifFrameResult::kCopied;
    } else {
      result = GifFrameResult::kBrokenOff;
    }
  }
  input_.Close();
  return result;
}

// Extensions are passed over as plain bytes, so a separator value inside one ends the search.
bool GifMerger::FindImage() {
  int byte = input_.ReadByte();
  while (byte != EOF && byte != kGifImage) {
    byte = input_.ReadByte();
  }
  if (byte == EOF) {
    std::fprintf(settings.messages, "GIF_Read_Header: Unexpected End of File\n");
  }
  return byte != EOF;
}

void GifMerger::ReadScreenHeader(bool first) {
  for (std::size_t count = 0; count < kGifSignature.size(); ++count) {
    ReadByte(false);
  }
  if (first) {
    WriteText(kGifSignature);
  }
  const int width = ReadWord(first);
  const int height = ReadWord(first);
  const int packed = ReadByte(first);
  globalColours_ = (packed & kGifTableFlag) != 0;
  pixelBits_ = packed & kGifTableSizeMask;
  const int background = ReadByte(first);
  ReadByte(first);  // the pixel aspect ratio
  if (settings.verbose) {
    const int colourResolution = packed >> 4 & 0x07;
    std::fprintf(settings.messages, "Screen: %ldx%ldx%ld m=%ld cres=%ld bkgnd=%ld pix=%ld\n",
                 long{width}, long{height}, long{GifColourCount(pixelBits_)},
                 long{packed & kGifTableFlag}, long{colourResolution}, long{background},
                 long{pixelBits_});
  }
  if (globalColours_) {
    ReadColours(first, GifColourCount(pixelBits_));
  }
  WriteGraphicControl();
  if (first) {
    WriteLoop();
  }
}

void GifMerger::ReadImageDescriptor(bool first) {
  for (int* const place : {&settings.x, &settings.y}) {
    const int own = ReadWord(false);
    if (!settings.fixedPosition) {
      *place = own;
    }
    WriteWord(*place);
  }
  const int width = ReadWord(true);
  const int height = ReadWord(true);
  const int packed = ReadByte(false);
  const int localFlag = packed & kGifTableFlag;
  const int localPixelBits = packed & kGifTableSizeMask;
  // Later frames always bring their colours along. The size is the screen's even where a local
  // table of another size follows.
  WriteByte((packed & ~kGifTableSizeMask) | (first ? 0 : kGifTableFlag) | pixelBits_);
  if (settings.verbose) {
    std::fprintf(settings.messages, "Image: %ldx%ldx%ld m=%ld i=%ld pix=%ld \n", long{width},
                 long{height}, long{GifColourCount(localPixelBits)}, long{localFlag},
                 long{packed & kGifInterlaceFlag}, long{localPixelBits});
  }
  if (localFlag != 0) {
    ReadColours(true, GifColourCount(localPixelBits));
  } else if (!first) {
    for (int index = 0; index < GifColourCount(pixelBits_); ++index) {
      const Colour& colour = colours_[static_cast<std::size_t>(index)];
      WriteByte(colour.red);
      WriteByte(colour.green);
      WriteByte(colour.blue);
    }
  }
}

// Written only for a file with a global colour table: the index refers to it.
void GifMerger::WriteGraphicControl() {
  const bool transparent = settings.transparent >= 0;
  if (!globalColours_ || (!transparent && settings.delay < 0)) {
    return;
  }
  GifControl control = {settings.delay, settings.disposal, std::nullopt};
  if (transparent) {
    control.transparent = FindTransparentColour();
  }
  WriteText(GifControlBlock(control));
}

void GifMerger::WriteLoop() {
  if (settings.loops >= 0) {
    WriteText(GifLoopBlock(settings.loops));
  }
}

// The index of the colour nearest to the transparent one, the lowest among equals.
int GifMerger::FindTransparentColour() const {
  const int red = settings.transparent & 0xFF;
  const int green = settings.transparent >> 8 & 0xFF;
  const int blue = settings.transparent >> 16;
  int best = 0;
  int bestDistance = 3 * 256;
  for (int index = 0; index < GifColourCount(pixelBits_); ++index) {
    const Colour& colour = colours_[static_cast<std::size_t>(index)];
    const int distance =
        std::abs(red - colour.red) + std::abs(green - colour.green) + std::abs(blue - colour.blue);
    if (distance < bestDistance) {
      best = index;
      bestDistance = distance;
    }
  }
  if (bestDistance != 0) {
    const Colour& colour = colours_[static_cast<std::size_t>(best)];
    std::fprintf(settings.messages, "Transparent not matched fully, col #%d (%d,%d,%d) used now\n",
                 best, colour.red, colour.green, colour.blue);
  }
  return best;
}

// A byte of a header, a descriptor or a table; 0xFF after the end of the file.
std::uint8_t GifMerger::ReadByte(bool copy) {
  const auto byte = static_cast<std::uint8_t>(input_.ReadByte());
  if (copy) {
    WriteByte(byte);
  }
  return byte;
}

int GifMerger::ReadWord(bool copy) {
  const int low = ReadByte(copy);
  const int high = ReadByte(copy);
  return high << 8 | low;
}

void GifMerger::ReadColours(bool copy, int count) {
  for (int index = 0; index < count; ++index) {
    Colour& colour = colours_[static_cast<std::size_t>(index)];
    colour.red = ReadByte(copy);
    colour.green = ReadByte(copy);
    colour.blue = ReadByte(copy);
  }
}

// Writes the low eight bits.
void GifMerger::WriteByte(int value) {
  std::fputc(value & 0xFF, output_);
}

void GifMerger::WriteWord(int value) {
  WriteByte(value);
  WriteByte(value >> 8);
}

void GifMerger::WriteText(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), output_);
}

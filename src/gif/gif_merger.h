// Makes one looping GIF of single-frame GIFs, frame by frame.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "gif/gif_input.h"
#include "gif/lzw_follower.h"

// How the frames to come are written, until the caller or, for x and y, a frame changes it.
struct GifSettings {
  // What becomes of a frame before the next one is drawn: 2 restores the background.
  int disposal = 2;
  // How often the animation is repeated, 0 for ever; a negative value leaves the loop out.
  int loops = 0;
  // How long a frame stands, in hundredths of a second, 0 to 65535. A negative value, where there
  // is no transparent colour either, leaves the graphic control extension out.
  int delay = 1;
  // The transparent colour, red + green * 2^8 + blue * 2^16, or a negative value for none.
  int transparent = -1;
  // With the fixed position every frame is placed at x, y; without it where its own file has it,
  // and x, y become that place.
  bool fixedPosition = false;
  int x = 0;
  int y = 0;
  // Where messages about bad frames go.
  std::FILE* messages = stderr;
  // Adds messages about the sizes that the files say, and about the tables of the decoder.
  bool verbose = false;
  bool debug = false;
};

// What became of a frame.
enum class GifFrameResult {
  kCopied,
  // There is no such file, or it cannot be opened. Nothing was written.
  kNotOpened,
  // The file ends before an image begins. The header, if it was due, and the blocks before an
  // image were written.
  kNoImage,
  // The file ends inside the compressed data. What there is of it was written; a frame that
  // follows would be taken for the rest of it.
  kBrokenOff,
};

// Frames are merged and not encoded again: what each frame's own GIF holds as compressed data, up
// to the code that ends it, is copied byte for byte, its colours come along, and only what stands
// around them is written here. The caller opens the output for binary writing, appends frame after
// frame and writes the trailer ";" itself. The output is not checked for errors. Tables and buffers
// are part of the object (about 80 KB).
class GifMerger {
 public:
  GifSettings settings;

  // Appends the first image of the GIF file at `path` to `output`. `first` says that this frame
  // brings the header, the screen descriptor and the global colour table. Returns what became of
  // it, after a message when it was not copied. Data that no encoder writes also brings a message,
  // but counts as copied.
  GifFrameResult AppendFile(const std::string& path, std::FILE* output, bool first);

  // The same for a GIF file whose content is `file`.
  GifFrameResult AppendBytes(std::string_view file, std::FILE* output, bool first);

 private:
  GifFrameResult AppendInput(std::FILE* output, bool first);
  bool FindImage();
  void ReadScreenHeader(bool first);
  void ReadImageDescriptor(bool first);
  void WriteGraphicControl();
  void WriteLoop();
  int FindTransparentColour() const;
  std::uint8_t ReadByte(bool copy);
  int ReadWord(bool copy);
  void ReadColours(bool copy, int count);
  void WriteByte(int value);
  void WriteWord(int value);
  void WriteText(std::string_view text);

  struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
  };

  GifInput input_;
  std::FILE* output_ = nullptr;
  // What the screen descriptor of the frame's file says. The colours are those of the last table
  // that was read, global or local.
  bool globalColours_ = false;
  int pixelBits_ = 0;
  std::array<Colour, 256> colours_ = {};
  LzwFollower follower_;
};

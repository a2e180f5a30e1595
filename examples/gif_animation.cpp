// Makes an animated GIF of a folder of frames: the shortest program around the GIF creator.
//
//   gif_animation InputFolder OutputFile [-FR n] [-TESSARA_IMAGES n]
//
// -FR is the frame rate, 1 to 30 frames a second (16 without it); -TESSARA_IMAGES 1 takes only
// frames that the product's own viewer has written. The frames are deleted once they are used, also
// when they make no GIF that can be shown. Ends with 0 when the GIF was made; 1 when it was not, or
// when the finished file is not a whole GIF or lacks its first frame, which one line on standard
// error tells; and 4 when a frame's data breaks off, with all frames left.
#include <cstdio>
#include <string>

#include "app/command_line.h"
#include "app/console.h"
#include "gif/gif_anim_creator.h"
#include "gif/gif_blocks.h"
#include "log/diagnostic_log.h"
#include "platform/files.h"
#include "platform/gdiplus.h"

namespace {

// What keeps the GIF that the creator has made from being shown; null when nothing does. What
// frames bring is copied as it is, so the creator does not see it.
const char* WhatIsWrong(const k3dGifAnimCreator& creator) {
  if (!creator.m_bFirstFrameCopied) {
    return "lacks the first frame, which brings its size";
  }
  const platform::OwnedFile file = platform::OpenFile(creator.m_sOutputFile, "rb");
  if (!file) {
    return "is not there";
  }
  const GifBlocks blocks = ReadGifBlocks([&file](std::size_t most) {
    std::string piece(most, '\0');
    piece.resize(std::fread(piece.data(), 1, most, file.get()));
    return piece;
  });
  return blocks.fault == GifFault::kNone ? nullptr : TextOf(blocks.fault);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    ConsolePrint("Usage: gif_animation InputFolder OutputFile [-FR n] [-TESSARA_IMAGES n]\n");
    return 1;
  }
  StartLog();
  // Static, so that it is also shut down when the process ends inside the creator.
  static const platform::GdiplusSession gdiplus;
  ParseCommandLineForGIF(argc, argv);
  if (g_gifAnimCreator.CreateAnimatedGif() != 1) {
    return 1;
  }
  const char* const wrong = WhatIsWrong(g_gifAnimCreator);
  if (wrong != nullptr) {
    std::fprintf(stderr, "%s cannot be shown: it %s.\n", g_gifAnimCreator.m_sOutputFile.GetString(),
                 wrong);
    return 1;
  }
  return 0;
}

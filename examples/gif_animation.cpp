// Makes an animated GIF of a folder of frames: the shortest program around the GIF creator.
//
//   gif_animation InputFolder OutputFile [-FR n] [-TESSARA_IMAGES n]
//
// -FR is the frame rate, 1 to 30 frames a second (16 without it); -TESSARA_IMAGES 1 takes only
// frames that the product's own viewer has written. The frames are deleted once they are used.
// Ends with 0 when the GIF was made, 1 when it was not or holds no frame that can be read, and 4
// when a frame's data breaks off.
#include <array>
#include <cstdio>
#include <memory>
#include <string_view>

#include "app/command_line.h"
#include "app/console.h"
#include "gif/gif_anim_creator.h"
#include "log/diagnostic_log.h"
#include "platform/files.h"
#include "platform/gdiplus.h"

namespace {

// Whether the file at `path` begins as a GIF and holds a whole image. When the first frame brings
// nothing, it may have neither.
bool HoldsFrame(const CString& path) {
  const platform::OwnedFile file = platform::OpenFile(path, "rb");
  std::array<char, 4> start = {};
  if (!file || std::fread(start.data(), 1, start.size(), file.get()) != start.size() ||
      std::string_view(start.data(), start.size()) != "GIF8") {
    return false;
  }
  const auto reader = std::make_unique<GifMerger>();
  return reader->AppendFile(path, nullptr, true) == GifFrameResult::kCopied;
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
  if (!HoldsFrame(g_gifAnimCreator.m_sOutputFile)) {
    std::fprintf(stderr, "%s holds no frame that can be read: the first frame cannot be used.\n",
                 g_gifAnimCreator.m_sOutputFile.GetString());
    return 1;
  }
  return 0;
}

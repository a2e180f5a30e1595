// Makes an animated GIF of a folder of frames: the shortest program around the GIF creator.
//
//   gif_animation InputFolder OutputFile [-FR n] [-TESSARA_IMAGES n]
//
// -FR is the frame rate, 1 to 30 frames a second (16 without it); -TESSARA_IMAGES 1 takes only
// frames that the product's own viewer has written. The frames are deleted once they are used.
// Ends with 0 when the GIF was made, 1 when it was not, and 4 when a frame's data breaks off.
#include "app/command_line.h"
#include "app/console.h"
#include "gif/gif_anim_creator.h"
#include "log/diagnostic_log.h"
#include "platform/gdiplus.h"

int main(int argc, char** argv) {
  if (argc < 3) {
    ConsolePrint("Usage: gif_animation InputFolder OutputFile [-FR n] [-TESSARA_IMAGES n]\n");
    return 1;
  }
  StartLog();
  // Static, so that it is also shut down when the process ends inside the creator.
  static const platform::GdiplusSession gdiplus;
  ParseCommandLineForGIF(argc, argv);
  return g_gifAnimCreator.CreateAnimatedGif() == 1 ? 0 : 1;
}

// k3dGifAnimCreator: makes one looping GIF of a folder of frames.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "frames/get_cae_data.h"
#include "gif/gif_input.h"
#include "text/cstring.h"

// Frames are merged and not encoded again: what each frame's own GIF holds as compressed data is
// copied byte for byte, and only the blocks between the frames are written here. The caller fills
// the three settings at the end, starts GDI+ and calls CreateAnimatedGif. Tables and buffers are
// part of the object, so that nothing is allocated for a frame.
class k3dGifAnimCreator {
 public:
  k3dGifAnimCreator() = default;
  k3dGifAnimCreator(const k3dGifAnimCreator&) = delete;
  k3dGifAnimCreator& operator=(const k3dGifAnimCreator&) = delete;
  virtual ~k3dGifAnimCreator() = default;

  // Makes m_sOutputFile of the frames in m_sInputFolder, then deletes the frames and sweeps the
  // temp root. GIF frames are taken as they are, others are saved as a GIF through GDI+, which the
  // caller has started. A frame that cannot be converted or read is left out with a message on
  // standard error. Returns 1 when the work went to its end, also when an exception cut it short;
  // 0, with nothing deleted, when there are no frames or the output cannot be opened. Image data
  // that breaks off ends the process, as AppendGifFile tells.
  int CreateAnimatedGif();

  // Fills the frame list from m_sInputFolder; it is left empty when there are no frames.
  void GetTheImageFiles();

  // Appends the first image of the GIF file at `path` to `output`, a stream opened for binary
  // writing. `first` is 1 for the first frame of an animation, which brings the header, the screen
  // descriptor and the global colour table, and 0 for any other. Returns true when an image was
  // copied; false, after a message on standard error, when the file cannot be opened or holds no
  // image; what was written until then stays. Image data that breaks off ends the process with
  // exit status 4, what was written flushed. The output is not checked for errors.
  bool AppendGifFile(const CString& path, std::FILE* output, int first);

  k3dGetCAEData m_caeData;

  // The merger's settings. The first two turn on messages on standard error about the tables and
  // about the sizes that the files tell.
  int m_nDebug = 0;
  int m_nVerbose = 0;
  // What becomes of a frame before the next one is drawn: 2 restores the background.
  int m_nDisposal = 2;
  // How often the animation is repeated, 0 for ever; a negative value leaves the loop out.
  int m_nLoops = 0;
  // How long a frame stands, in hundredths of a second.
  int m_nDelay = 1;
  // The transparent colour, red + green * 2^8 + blue * 2^16, or -1 for none.
  int m_nTransparent = -1;
  // With the fixed position every frame is placed at x, y; without it x, y follow the frames.
  int m_nFixedPosition = 0;
  int m_nX = 0;
  int m_nY = 0;
  // Later frames bring their colours along; set for each frame and cleared by its descriptor.
  int m_nUseLocalColourTable = 0;

  // Called, when set, as the last thing before broken-off image data ends the process. It may
  // throw to leave AppendGifFile instead; the input is closed and the output complete so far.
  void (*m_pBeforeProcessEnd)() = nullptr;

  CString m_sInputFolder;
  CString m_sOutputFile;
  // In frames per second; below 1 counts as 16.
  int m_nFrameRate = 16;

 private:
  // Codes 0 to 4100 have a place in the table; the last one is never cleared.
  static constexpr int kLastCode = 4100;
  static constexpr int kRoot = -1;

  struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
  };

  void AppendFrames(std::FILE* output);
  void AppendConverted(const CString& path, std::FILE* output, int first);

  void ReadScreenHeader(bool first);
  void ReadImageDescriptor(bool first);
  void WriteGraphicControl();
  void WriteLoop();
  int FindTransparentColour() const;
  std::uint8_t ReadByte(bool copy);
  void WriteByte(int value);
  int ReadWord(bool copy);
  void WriteWord(int value);
  void ReadColours(bool copy, int count);

  // What changes with every code while image data is followed. It is a local value of
  // CopyImageData, and the operations on it are inlined there, so that it can live in registers.
  struct Decoder {
    // The bits held, lowest first, and their number.
    std::uint64_t bits = 0;
    int bitsHeld = 0;
    int nextFree = 0;
    // The data bytes at hand.
    GifInput::Run run;
  };

  void CopyImageData();
  int ReadCode(Decoder& decoder);
  void FillBits(Decoder& decoder);
  void PutBackUnneeded(Decoder& decoder);
  bool NextFreeCode(Decoder& decoder);
  void AddString(int prefix, int index);
  void OutputString(int code);
  void FollowString(int code) const;
  void InitTable(Decoder& decoder);
  void ClearTable(Decoder& decoder);
  GifInput::Run ReadRun();
  [[noreturn]] void EndProcess();

  GifInput m_input;
  std::FILE* m_pOutput = nullptr;

  // What the screen descriptor of the frame's file tells. The colours are those of the last table
  // that was read, global or local.
  bool m_bGlobalColours = false;
  int m_nPixelBits = 0;
  int m_nColours = 0;
  std::array<Colour, 256> m_aColours = {};

  // The decoder. Nothing asks for the pixels that a code stands for, so a string is no more than
  // its chain of prefixes, which ends at a root.
  std::array<bool, kLastCode + 1> m_aUsed = {};
  std::array<std::int16_t, kLastCode + 1> m_aPrefix = {};
  int m_nInitialCodeSize = 0;
  int m_nClear = 0;
  int m_nEndOfInformation = 0;
  int m_nCodeWidth = 0;
  // The code at which the width grows.
  int m_nIncSize = 0;
  // Whether every string in use is known to end at a root.
  bool m_bStringsEnd = true;
  int m_nBytesLeftInBlock = 0;
};

// The one GIF creator of the process.
inline k3dGifAnimCreator g_gifAnimCreator;

// An AVI file that is being written: its handle, opening and closing it.
#pragma once

#include <windows.h>
// vfw.h builds on both.
#include <mmsystem.h>
// The AVIFile interface.
#include <vfw.h>

#include <memory>
#include <optional>
#include <string_view>

#include "platform/owned.h"
#include "text/cstring.h"

// Keeps the AVIFile library started.
class AviLibrary {
 public:
  AviLibrary() { AVIFileInit(); }
  ~AviLibrary() { AVIFileExit(); }
  AviLibrary(const AviLibrary&) = delete;
  AviLibrary& operator=(const AviLibrary&) = delete;
};

using OwnedAviFile = platform::Owned<IAVIFile*, AVIFileRelease>;
using OwnedAviStream = platform::Owned<IAVIStream*, AVIStreamRelease>;

// `rate` / `scale` frames a second, as the header of a video stream has it.
struct FrameRate {
  DWORD rate = 0;
  DWORD scale = 0;
};

// An AVI file that is being written. Releases everything when it goes, also without CloseAviFile.
struct AviHandle {
  AviLibrary library;
  OwnedAviFile file;
  // All zero (no channels) until a format is known.
  WAVEFORMATEX audioFormat = {};
  FrameRate frameRate;
  // Each is empty until first needed.
  OwnedAviStream audioStream;
  OwnedAviStream videoStream;
  OwnedAviStream compressedVideoStream;
  // The numbers of the next video and of the next audio sample.
  DWORD frameCounter = 0;
  DWORD audioPosition = 0;
  bool errorFlag = false;
  // How many bytes the compressor reads from every frame; 0 without a compressor.
  DWORD compressorInputSize = 0;
};

// Sets the error flag when `result`, that of an AVIFile call, is a failure; passes it on.
inline HRESULT Noted(AviHandle& handle, HRESULT result) {
  if (result != AVIERR_OK) {
    handle.errorFlag = true;
  }
  return result;
}

// The period in whole milliseconds for a rate in frames per second: 62 for 16, 0 for a rate above
// 1000. A rate below 1 counts as the default.
DWORD FramePeriod(int frameRate);

// Exactly the frames per second that `decimal` says, digits that may have a point among them: 16/1
// for "16", 7/5000 for "0.0014". Nothing for 0, for more than 19 characters, for a rate or a scale
// above 2^31 - 1, and for a rate so low that a frame stands for 2^32 microseconds, which the header
// of an AVI file has no room for.
std::optional<FrameRate> ExactFrameRate(std::string_view decimal);

// Creates the file `path`, replacing an existing one, for frames of `period` milliseconds and
// sound of `audioFormat` (its 18 bytes are copied; null for a file without sound or with that of
// the first wave). Returns its handle, or null when the file cannot be opened for writing.
std::unique_ptr<AviHandle> CreateAviFile(const CString& path, DWORD period,
                                         const WAVEFORMATEX* audioFormat);

// The same for frames at a rate that need not be a whole number of milliseconds apart. A rate or a
// scale of 0 is refused with the first frame.
std::unique_ptr<AviHandle> CreateAviFile(const CString& path, FrameRate frameRate,
                                         const WAVEFORMATEX* audioFormat);

// Finishes the file and frees the handle. Returns 0, or AVIERR_BADHANDLE without a handle.
HRESULT CloseAviFile(std::unique_ptr<AviHandle> handle);

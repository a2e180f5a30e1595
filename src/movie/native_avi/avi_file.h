// An AVI file that is being written: its handle, opening and closing it.
#pragma once

#include <windows.h>
// vfw.h builds on both.
#include <mmsystem.h>
// The AVIFile interface.
#include <vfw.h>

#include <memory>

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

// An AVI file that is being written. Releases everything when it goes, also without CloseAviFile.
struct AviHandle {
  AviLibrary library;
  OwnedAviFile file;
  // All zero (no channels) until a format is known.
  WAVEFORMATEX audioFormat = {};
  // In milliseconds per video frame.
  DWORD period = 0;
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

// Creates the file `path`, replacing an existing one, for frames of `period` milliseconds and
// sound of `audioFormat` (its 18 bytes are copied; null for a file without sound or with that of
// the first wave). Returns its handle, or null when the file cannot be opened for writing.
std::unique_ptr<AviHandle> CreateAviFile(const CString& path, DWORD period,
                                         const WAVEFORMATEX* audioFormat);

// Finishes the file and frees the handle. Returns 0, or AVIERR_BADHANDLE without a handle.
HRESULT CloseAviFile(std::unique_ptr<AviHandle> handle);

// The native AVI layer: writes AVI files through the AVIFile interface of Video for Windows.
//
// A file is made by CreateAviFile, any number of the calls between, and CloseAviFile. All results
// are AVIFile codes: 0 is success, AviResultText puts the others into words. A failed AVIFile call
// and a cancelled dialog set the handle's error flag; from then on nothing more is written and
// every call gives AVIERR_ERROR, but for those that lack a handle, a bitmap or data.
#pragma once

#include <windows.h>
// vfw.h builds on both.
#include <mmsystem.h>
// The AVIFile interface.
#include <vfw.h>

#include <cstddef>
#include <memory>

#include "text/cstring.h"

// Keeps the AVIFile library started.
class AviLibrary {
 public:
  AviLibrary() { AVIFileInit(); }
  ~AviLibrary() { AVIFileExit(); }
  AviLibrary(const AviLibrary&) = delete;
  AviLibrary& operator=(const AviLibrary&) = delete;
};

struct AviFileReleaser {
  void operator()(IAVIFile* file) const { AVIFileRelease(file); }
};
using OwnedAviFile = std::unique_ptr<IAVIFile, AviFileReleaser>;

struct AviStreamReleaser {
  void operator()(IAVIStream* stream) const { AVIStreamRelease(stream); }
};
using OwnedAviStream = std::unique_ptr<IAVIStream, AviStreamReleaser>;

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

// The period in whole milliseconds for a rate in frames per second: 62 for 16, 0 for a rate above
// 1000. A rate below 1 counts as 16.
DWORD FramePeriod(int frameRate);

// Compression options that are all zero but for the compressor, which four characters name.
constexpr AVICOMPRESSOPTIONS CompressorOptions(DWORD compressor) {
  AVICOMPRESSOPTIONS options = {};
  options.fccHandler = compressor;
  return options;
}

// Creates the file `path`, replacing an existing one, for frames of `period` milliseconds and
// sound of `audioFormat` (its 18 bytes are copied; null for a file without sound or with that of
// the first wave). Returns its handle, or null when the file cannot be opened for writing.
std::unique_ptr<AviHandle> CreateAviFile(const CString& path, DWORD period,
                                         const WAVEFORMATEX* audioFormat);

// Chooses the video compression, once and before the first frame. `frame` is a DIB section with the
// size and colours of the frames to come. The compression starts from `options` (null for none);
// with `showDialog` the user sees and changes it in the standard compression dialog, whose owner
// is `owner` (null for none). Memory that `options` points to has to be of the process heap, as the
// dialog allocates it; this call frees it, whatever its result.
// Returns 0; AVIERR_BADHANDLE without a handle, AVIERR_BADPARAM when `frame` is no DIB section,
// AVIERR_COMPRESSOR when there is a compression already, AVIERR_USERABORT when the user cancelled,
// or the code of the AVIFile call that failed.
HRESULT SetVideoCompression(AviHandle* handle, HBITMAP frame, const AVICOMPRESSOPTIONS* options,
                            bool showDialog, HWND owner);

// Appends the DIB section `frame` as the next frame, uncompressed when no compression was set. The
// first frame fixes the format of the stream. Later frames are not compared with it: in an
// uncompressed stream one of another size is written as it is, and players will stumble over it.
// Returns 0; AVIERR_BADHANDLE and AVIERR_BADPARAM as above; AVIERR_BADSIZE, with nothing written,
// when `frame` has fewer bytes than the compressor is going to read; or the code of the AVIFile
// call that failed.
HRESULT AddVideoFrame(AviHandle* handle, HBITMAP frame);

// Appends `size` bytes of samples in the handle's audio format; nothing for a size of 0. The system
// may refuse a new stream once a sample is written, so in a file with sound and video
// SetVideoCompression (with "DIB " for none) comes first, then the first sound, then the frames and
// all further sound. Returns 0; AVIERR_BADHANDLE without a handle; AVIERR_BADFORMAT when the handle
// has no audio format; AVIERR_BADPARAM without data, for a size that is not a whole number of
// samples and for one of 2 GB or more; or the code of the AVIFile call that failed.
HRESULT AddAudio(AviHandle* handle, const void* samples, DWORD size);

// Appends the sound of a wave image with the plain header of 44 bytes. With the kind SND_MEMORY
// `source` is the complete image, with SND_FILENAME the zero-terminated path of a wave file. Its
// format becomes the handle's audio format when that has none.
// Returns 0; AVIERR_BADHANDLE without a handle, AVIERR_BADPARAM without a source, AVIERR_BADFLAGS
// for any other kind, AVIERR_FILEOPEN or AVIERR_FILEREAD when there is no such file or it cannot
// be read, AVIERR_BADFORMAT for any other header, for a header that promises more data than there
// are, and for another format than the handle's; or as AddAudio.
HRESULT AddWave(AviHandle* handle, const void* source, DWORD kind);

// Finishes the file and frees the handle. Returns 0, or AVIERR_BADHANDLE without a handle.
HRESULT CloseAviFile(std::unique_ptr<AviHandle> handle);

// Copies the English text for a result code to `buffer`, cut to `size` - 1 characters and a
// terminating zero; without a buffer or with size 0 nothing is copied. Returns the length of the
// full text.
std::size_t AviResultText(HRESULT code, char* buffer, std::size_t size);

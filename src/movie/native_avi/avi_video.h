// The video stream of an AVI file: its compression and its frames.
#pragma once

#include "movie/native_avi/avi_file.h"

// Compression options that are all zero but for the compressor, which four characters name.
constexpr AVICOMPRESSOPTIONS CompressorOptions(DWORD compressor) {
  AVICOMPRESSOPTIONS options = {};
  options.fccHandler = compressor;
  return options;
}

// Chooses the video compression, once and before the first frame. `frame` is a DIB section with the
// size and colours of the frames to come. The compression starts from `options` (null for none);
// with `showDialog` the user sees and changes it in the standard compression dialog, whose owner
// is `owner` (null for none). Memory that `options` points to has to be of the process heap, as the
// dialog allocates it. It is freed when the dialog was cancelled and when the compressed stream was
// asked for, whatever came of that; a call refused before leaves it to the caller.
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

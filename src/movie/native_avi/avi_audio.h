// The audio stream of an AVI file: samples, and waves.
#pragma once

#include "movie/native_avi/avi_file.h"

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

// The native AVI layer: writes AVI files through the AVIFile interface of Video for Windows.
//
// A file is made by CreateAviFile, any number of the calls between, and CloseAviFile. All results
// are AVIFile codes: 0 is success, AviResultText puts the others into words. A failed AVIFile call
// and a cancelled dialog set the handle's error flag; from then on nothing more is written and
// every call gives AVIERR_ERROR, but for those that lack a handle, a bitmap or data.
#pragma once

#include "movie/native_avi/avi_audio.h"
#include "movie/native_avi/avi_file.h"
#include "movie/native_avi/avi_video.h"
#include "movie/native_avi/result_text.h"

// The error flag rule.
#pragma once

#include "movie/native_avi/native_avi.h"

// Sets the error flag when `result`, that of an AVIFile call, is a failure; passes it on.
inline HRESULT Noted(AviHandle& handle, HRESULT result) {
  if (result != AVIERR_OK) {
    handle.errorFlag = true;
  }
  return result;
}

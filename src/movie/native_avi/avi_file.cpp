#include "movie/native_avi/avi_file.h"

#include "frames/frame_rate.h"

DWORD FramePeriod(int frameRate) {
  return static_cast<DWORD>(1000 / UsableFrameRate(frameRate));
}

std::unique_ptr<AviHandle> CreateAviFile(const CString& path, DWORD period,
                                         const WAVEFORMATEX* audioFormat) {
  // The handle comes first, since it starts the library.
  auto handle = std::make_unique<AviHandle>();
  IAVIFile* file = nullptr;
  if (AVIFileOpenA(&file, path.GetString(), OF_WRITE | OF_CREATE, nullptr) != AVIERR_OK) {
    return nullptr;
  }
  handle->file.reset(file);
  handle->period = period;
  if (audioFormat != nullptr) {
    handle->audioFormat = *audioFormat;
  }
  return handle;
}

HRESULT CloseAviFile(std::unique_ptr<AviHandle> handle) {
  if (handle == nullptr) {
    return AVIERR_BADHANDLE;
  }
  // The rest is released in reverse order of the fields: the compressed stream, the plain one, the
  // file, the library.
  handle->audioStream.reset();
  return AVIERR_OK;
}

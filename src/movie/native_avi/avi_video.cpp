#include "movie/native_avi/avi_video.h"

#include <algorithm>
#include <vector>

#include "platform/owned.h"

namespace {

constexpr DWORD kUncompressed = mmioFOURCC('D', 'I', 'B', ' ');

// Lets the user change the options for `stream`. Returns whether the dialog was closed with OK.
bool Ask(AVICOMPRESSOPTIONS& options, IAVIStream* stream, HWND owner) {
  AVICOMPRESSOPTIONS* pointer = &options;
  return AVISaveOptions(owner, 0, 1, &stream, &pointer) == TRUE;
}

// Frees the memory that codecs and the dialog hang on options.
void Free(AVICOMPRESSOPTIONS& options) {
  AVICOMPRESSOPTIONS* pointer = &options;
  AVISaveOptionsFree(1, &pointer);
}

// The checks that come before anything is done with a frame. Fills `dib` when they are passed.
HRESULT CheckVideoCall(const AviHandle* handle, HBITMAP frame, DIBSECTION& dib) {
  if (handle == nullptr) {
    return AVIERR_BADHANDLE;
  }
  if (frame == nullptr || GetObjectA(frame, sizeof(dib), &dib) != sizeof(dib)) {
    return AVIERR_BADPARAM;
  }
  return handle->errorFlag ? AVIERR_ERROR : AVIERR_OK;
}

HRESULT MakeVideoStream(AviHandle& handle, const DIBSECTION& dib) {
  if (handle.videoStream != nullptr) {
    return AVIERR_OK;
  }
  AVISTREAMINFOA header = {};
  header.fccType = streamtypeVIDEO;
  header.dwScale = handle.frameRate.scale;
  header.dwRate = handle.frameRate.rate;
  header.dwSuggestedBufferSize = dib.dsBmih.biSizeImage;
  header.rcFrame = {0, 0, dib.dsBm.bmWidth, dib.dsBm.bmHeight};
  IAVIStream* stream = nullptr;
  const HRESULT result = AVIFileCreateStreamA(handle.file.get(), &stream, &header);
  handle.videoStream.reset(stream);
  return Noted(handle, result);
}

// The bitmap's header with its colour table after it.
std::vector<BYTE> VideoFormat(HBITMAP frame, const DIBSECTION& dib) {
  const BITMAPINFOHEADER& header = dib.dsBmih;
  std::vector<BYTE> format(sizeof(header) + header.biClrUsed * sizeof(RGBQUAD));
  const auto* const bytes = reinterpret_cast<const BYTE*>(&header);
  std::copy(bytes, bytes + sizeof(header), format.begin());
  if (header.biClrUsed != 0) {
    const platform::Owned<HDC, DeleteDC> context(CreateCompatibleDC(nullptr));
    auto* const previous = SelectObject(context.get(), frame);
    auto* const colours = reinterpret_cast<RGBQUAD*>(&format[sizeof(header)]);
    GetDIBColorTable(context.get(), 0, header.biClrUsed, colours);
    SelectObject(context.get(), previous);
  }
  return format;
}

// Frees what hangs on `options`.
HRESULT MakeCompressedStream(AviHandle& handle, HBITMAP frame, const DIBSECTION& dib,
                             AVICOMPRESSOPTIONS options) {
  IAVIStream* stream = nullptr;
  HRESULT result = AVIMakeCompressedStream(&stream, handle.videoStream.get(), &options, nullptr);
  handle.compressedVideoStream.reset(stream);
  const DWORD compressor = options.fccHandler;
  Free(options);
  if (result != AVIERR_OK) {
    return Noted(handle, result);
  }
  if (compressor != 0 && compressor != kUncompressed) {
    handle.compressorInputSize = dib.dsBmih.biSizeImage;
  }
  std::vector<BYTE> format = VideoFormat(frame, dib);
  result = AVIStreamSetFormat(handle.compressedVideoStream.get(), 0, format.data(),
                              static_cast<LONG>(format.size()));
  return Noted(handle, result);
}

HRESULT MakeUncompressedStream(AviHandle& handle, HBITMAP frame, const DIBSECTION& dib) {
  if (handle.compressedVideoStream != nullptr) {
    return AVIERR_OK;
  }
  return MakeCompressedStream(handle, frame, dib, CompressorOptions(kUncompressed));
}

}  // namespace

HRESULT SetVideoCompression(AviHandle* handle, HBITMAP frame, const AVICOMPRESSOPTIONS* options,
                            bool showDialog, HWND owner) {
  AVICOMPRESSOPTIONS chosen = options == nullptr ? AVICOMPRESSOPTIONS{} : *options;
  DIBSECTION dib = {};
  if (const HRESULT result = CheckVideoCall(handle, frame, dib); result != AVIERR_OK) {
    return result;
  }
  if (handle->compressedVideoStream != nullptr) {
    return AVIERR_COMPRESSOR;
  }
  if (const HRESULT result = MakeVideoStream(*handle, dib); result != AVIERR_OK) {
    return result;
  }
  if (showDialog && !Ask(chosen, handle->videoStream.get(), owner)) {
    Free(chosen);
    return Noted(*handle, AVIERR_USERABORT);
  }
  return MakeCompressedStream(*handle, frame, dib, chosen);
}

HRESULT AddVideoFrame(AviHandle* handle, HBITMAP frame) {
  DIBSECTION dib = {};
  if (const HRESULT result = CheckVideoCall(handle, frame, dib); result != AVIERR_OK) {
    return result;
  }
  if (const HRESULT result = MakeVideoStream(*handle, dib); result != AVIERR_OK) {
    return result;
  }
  if (const HRESULT result = MakeUncompressedStream(*handle, frame, dib); result != AVIERR_OK) {
    return result;
  }
  // Compressors take the size of every frame for granted.
  if (dib.dsBmih.biSizeImage < handle->compressorInputSize) {
    return AVIERR_BADSIZE;
  }
  // Drawing that GDI still holds back belongs to the frame.
  GdiFlush();
  const HRESULT result = AVIStreamWrite(
      handle->compressedVideoStream.get(), static_cast<LONG>(handle->frameCounter), 1,
      dib.dsBm.bmBits, static_cast<LONG>(dib.dsBmih.biSizeImage), AVIIF_KEYFRAME, nullptr, nullptr);
  if (result == AVIERR_OK) {
    ++handle->frameCounter;
  }
  return Noted(*handle, result);
}

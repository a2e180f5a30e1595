// The video stream: its compression and its frames.
#include <algorithm>
#include <vector>

#include "movie/native_avi/avi_call.h"
#include "movie/native_avi/native_avi.h"

namespace {

constexpr DWORD kUncompressed = mmioFOURCC('D', 'I', 'B', ' ');

// Compression options, and the memory that codecs and the dialog hang on them.
class CompressOptions {
 public:
  explicit CompressOptions(const AVICOMPRESSOPTIONS& options) : options_(options) {}
  ~CompressOptions() { AVISaveOptionsFree(1, &pointer_); }
  CompressOptions(const CompressOptions&) = delete;
  CompressOptions& operator=(const CompressOptions&) = delete;

  // Lets the user change the options for `stream`. Returns whether it was closed with OK.
  bool Ask(IAVIStream* stream, HWND owner) {
    return AVISaveOptions(owner, 0, 1, &stream, &pointer_) == TRUE;
  }

  AVICOMPRESSOPTIONS* Get() { return pointer_; }

 private:
  AVICOMPRESSOPTIONS options_;
  AVICOMPRESSOPTIONS* pointer_ = &options_;
};

struct DeviceContextDeleter {
  using pointer = HDC;
  void operator()(HDC context) const { DeleteDC(context); }
};

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
  header.dwScale = handle.period;
  header.dwRate = 1000;
  header.dwSuggestedBufferSize = dib.dsBmih.biSizeImage;
  header.rcFrame = {0, 0, dib.dsBm.bmWidth, dib.dsBm.bmHeight};
  IAVIStream* stream = nullptr;
  const HRESULT result = AVIFileCreateStreamA(handle.file.get(), &stream, &header);
  handle.videoStream.reset(stream);
  return Noted(handle, result);
}

// The bitmap's header with its colour table behind it.
std::vector<BYTE> VideoFormat(HBITMAP frame, const DIBSECTION& dib) {
  const BITMAPINFOHEADER& header = dib.dsBmih;
  std::vector<BYTE> format(sizeof(header) + header.biClrUsed * sizeof(RGBQUAD));
  const auto* const bytes = reinterpret_cast<const BYTE*>(&header);
  std::copy(bytes, bytes + sizeof(header), format.begin());
  if (header.biClrUsed != 0) {
    const std::unique_ptr<HDC, DeviceContextDeleter> context(CreateCompatibleDC(nullptr));
    auto* const previous = SelectObject(context.get(), frame);
    auto* const colours = reinterpret_cast<RGBQUAD*>(&format[sizeof(header)]);
    GetDIBColorTable(context.get(), 0, header.biClrUsed, colours);
    SelectObject(context.get(), previous);
  }
  return format;
}

HRESULT MakeCompressedStream(AviHandle& handle, HBITMAP frame, const DIBSECTION& dib,
                             CompressOptions& options) {
  IAVIStream* stream = nullptr;
  HRESULT result =
      AVIMakeCompressedStream(&stream, handle.videoStream.get(), options.Get(), nullptr);
  handle.compressedVideoStream.reset(stream);
  if (result != AVIERR_OK) {
    return Noted(handle, result);
  }
  const DWORD compressor = options.Get()->fccHandler;
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
  CompressOptions options(CompressorOptions(kUncompressed));
  return MakeCompressedStream(handle, frame, dib, options);
}

}  // namespace

HRESULT SetVideoCompression(AviHandle* handle, HBITMAP frame, const AVICOMPRESSOPTIONS* options,
                            bool showDialog, HWND owner) {
  CompressOptions chosen(options == nullptr ? AVICOMPRESSOPTIONS{} : *options);
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
  if (showDialog && !chosen.Ask(handle->videoStream.get(), owner)) {
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

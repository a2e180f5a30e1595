#include "movie/native_avi/avi_audio.h"

#include <cstring>
#include <limits>
#include <optional>
#include <span>
#include <tuple>
#include <vector>

#include "platform/owned.h"

namespace {

// The start of a wave image.
struct WaveHeader {
  DWORD riff;
  DWORD riffSize;
  DWORD wave;
  DWORD fmt;
  DWORD formatSize;
  PCMWAVEFORMAT format;
  DWORD data;
  DWORD dataSize;
};
static_assert(sizeof(WaveHeader) == 44);

struct Wave {
  WAVEFORMATEX format = {};
  std::span<const BYTE> samples;
};

// The checks that come before anything is done with sound.
HRESULT CheckAudioCall(const AviHandle* handle, const void* data) {
  if (handle == nullptr) {
    return AVIERR_BADHANDLE;
  }
  if (data == nullptr) {
    return AVIERR_BADPARAM;
  }
  return handle->errorFlag ? AVIERR_ERROR : AVIERR_OK;
}

bool IsUsable(const WAVEFORMATEX& format) {
  return format.nChannels != 0 && format.nBlockAlign != 0;
}

// Compares all but the size of the extra data, which a wave with a plain header does not give.
bool IsSameFormat(const WAVEFORMATEX& left, const WAVEFORMATEX& right) {
  const auto fields = [](const WAVEFORMATEX& format) {
    return std::tuple<WORD, WORD, DWORD, DWORD, WORD, WORD>(
        format.wFormatTag, format.nChannels, format.nSamplesPerSec, format.nAvgBytesPerSec,
        format.nBlockAlign, format.wBitsPerSample);
  };
  return fields(left) == fields(right);
}

HRESULT MakeAudioStream(AviHandle& handle) {
  if (handle.audioStream != nullptr) {
    return AVIERR_OK;
  }
  WAVEFORMATEX& format = handle.audioFormat;
  AVISTREAMINFOA header = {};
  header.fccType = streamtypeAUDIO;
  header.dwScale = format.nBlockAlign;
  header.dwRate = format.nSamplesPerSec * format.nBlockAlign;
  header.dwSampleSize = format.nBlockAlign;
  header.dwQuality = static_cast<DWORD>(-1);
  IAVIStream* stream = nullptr;
  HRESULT result = AVIFileCreateStreamA(handle.file.get(), &stream, &header);
  handle.audioStream.reset(stream);
  if (result == AVIERR_OK) {
    result = AVIStreamSetFormat(stream, 0, &format, sizeof(format));
  }
  return Noted(handle, result);
}

// Writes whole samples at the end of the audio stream.
HRESULT WriteSamples(AviHandle& handle, const void* samples, DWORD size) {
  IAVIStream* const stream = handle.audioStream.get();
  const DWORD count = size / handle.audioFormat.nBlockAlign;
  const auto writeAt = [&](LONG position) {
    return AVIStreamWrite(stream, position, static_cast<LONG>(count), const_cast<void*>(samples),
                          static_cast<LONG>(size), 0, nullptr, nullptr);
  };
  HRESULT result = writeAt(static_cast<LONG>(handle.audioPosition));
  if (result == AVIERR_UNSUPPORTED) {
    // Some systems count the length of the stream in writes and accept no other position.
    result = writeAt(AVIStreamEnd(stream));
  }
  if (result == AVIERR_OK) {
    handle.audioPosition += count;
  }
  return Noted(handle, result);
}

// The whole content of a file, or the code that says why there is none.
HRESULT ReadWholeFile(const char* path, std::vector<BYTE>& content) {
  auto* const opened = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                   FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened == INVALID_HANDLE_VALUE) {
    return AVIERR_FILEOPEN;
  }
  const platform::Owned<HANDLE, CloseHandle> file(opened);
  LARGE_INTEGER size = {};
  // The header of a wave cannot give a size of 4 GB or more.
  if (GetFileSizeEx(file.get(), &size) == 0 || size.HighPart != 0) {
    return AVIERR_FILEREAD;
  }
  content.resize(size.LowPart);
  DWORD bytesRead = 0;
  const BOOL done = ReadFile(file.get(), content.data(), size.LowPart, &bytesRead, nullptr);
  return done != 0 && bytesRead == size.LowPart ? AVIERR_OK : AVIERR_FILEREAD;
}

// A complete image in memory, as far as its own header says.
std::span<const BYTE> ImageInMemory(const void* source) {
  const auto* const bytes = static_cast<const BYTE*>(source);
  DWORD riffSize = 0;
  std::memcpy(&riffSize, bytes + offsetof(WaveHeader, riffSize), sizeof(riffSize));
  return {bytes, std::size_t{riffSize} + offsetof(WaveHeader, wave)};
}

// Takes a wave image apart; nothing when it is not one with a plain header and all of its data.
std::optional<Wave> ReadWave(std::span<const BYTE> image) {
  WaveHeader header = {};
  if (image.size() < sizeof(header)) {
    return std::nullopt;
  }
  std::memcpy(&header, image.data(), sizeof(header));
  if (header.riff != FOURCC_RIFF || header.wave != mmioFOURCC('W', 'A', 'V', 'E') ||
      header.fmt != mmioFOURCC('f', 'm', 't', ' ') || header.formatSize != sizeof(header.format) ||
      header.data != mmioFOURCC('d', 'a', 't', 'a') ||
      header.dataSize > image.size() - sizeof(header)) {
    return std::nullopt;
  }
  Wave wave;
  std::memcpy(&wave.format, &header.format, sizeof(header.format));
  wave.samples = image.subspan(sizeof(header), header.dataSize);
  return wave;
}

}  // namespace

HRESULT AddAudio(AviHandle* handle, const void* samples, DWORD size) {
  if (const HRESULT result = CheckAudioCall(handle, samples); result != AVIERR_OK) {
    return result;
  }
  if (!IsUsable(handle->audioFormat)) {
    return AVIERR_BADFORMAT;
  }
  if (size % handle->audioFormat.nBlockAlign != 0 ||
      size > static_cast<DWORD>(std::numeric_limits<LONG>::max())) {
    return AVIERR_BADPARAM;
  }
  if (size == 0) {
    // Writing no samples at all leaves some systems with a broken stream.
    return AVIERR_OK;
  }
  if (const HRESULT result = MakeAudioStream(*handle); result != AVIERR_OK) {
    return result;
  }
  return WriteSamples(*handle, samples, size);
}

HRESULT AddWave(AviHandle* handle, const void* source, DWORD kind) {
  if (const HRESULT result = CheckAudioCall(handle, source); result != AVIERR_OK) {
    return result;
  }
  if (kind != SND_MEMORY && kind != SND_FILENAME) {
    return AVIERR_BADFLAGS;
  }
  std::vector<BYTE> content;
  if (kind == SND_FILENAME) {
    if (const HRESULT result = ReadWholeFile(static_cast<const char*>(source), content);
        result != AVIERR_OK) {
      return result;
    }
  }
  const std::optional<Wave> wave = ReadWave(kind == SND_MEMORY ? ImageInMemory(source) : content);
  if (!wave || !IsUsable(wave->format)) {
    return AVIERR_BADFORMAT;
  }
  if (handle->audioFormat.nChannels == 0) {
    handle->audioFormat = wave->format;
  } else if (!IsSameFormat(handle->audioFormat, wave->format)) {
    return AVIERR_BADFORMAT;
  }
  return AddAudio(handle, wave->samples.data(), static_cast<DWORD>(wave->samples.size()));
}

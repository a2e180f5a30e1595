#include "movie/native_avi/native_avi.h"

#include <gmock/gmock.h>

#include <array>
#include <fstream>
#include <functional>

#include "movie/avi_creator.h"
#include "movie/native_avi/frame_bitmap.h"
#include "platform/files.h"
#include "platform/gdiplus.h"
#include "tests/support/avi_reader.h"
#include "tests/support/frame_images.h"
#include "tests/support/log_fixture.h"
#include "tests/support/run_program.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr HRESULT Code(unsigned code) {
  return static_cast<HRESULT>(code);
}

std::string Bytes(std::size_t size, int seed) {
  std::string bytes;
  for (std::size_t index = 0; index < size; ++index) {
    bytes += static_cast<char>(seed + static_cast<int>(index) * 7);
  }
  return bytes;
}

struct ColourInfo {
  BITMAPINFOHEADER header = {};
  std::array<RGBQUAD, 256> colours = {};
};

ColourInfo Info(int width, int height, int bits) {
  ColourInfo info;
  info.header = {
      sizeof(info.header), width, height, 1, static_cast<WORD>(bits), BI_RGB, 0, 0, 0, 0, 0};
  for (std::size_t index = 0; index < info.colours.size(); ++index) {
    const auto shade = static_cast<BYTE>(index);
    info.colours[index] = {shade, static_cast<BYTE>(255 - shade), 9, 0};
  }
  return info;
}

// A DIB section whose image, all padding included, is Bytes(its size, seed).
OwnedBitmap MakeFrame(int width, int height, int bits, int seed) {
  const ColourInfo info = Info(width, height, bits);
  void* pixels = nullptr;
  OwnedBitmap frame(CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&info),
                                     DIB_RGB_COLORS, &pixels, nullptr, 0));
  Bytes(static_cast<std::size_t>((width * bits + 31) / 32 * 4 * height), seed)
      .copy(static_cast<char*>(pixels), std::string::npos);
  return frame;
}

WAVEFORMATEX Pcm(int channels, int bits) {
  const auto align = static_cast<WORD>(channels * bits / 8);
  return {WAVE_FORMAT_PCM, static_cast<WORD>(channels), 8000, 8000U * align,
          align,           static_cast<WORD>(bits),     0};
}

std::string WaveImage(const WAVEFORMATEX& format, const std::string& samples) {
  return "RIFF" + LittleEndian(static_cast<DWORD>(samples.size()) + 36, 4) + "WAVEfmt " +
         LittleEndian(16, 4) + std::string(reinterpret_cast<const char*>(&format), 16) + "data" +
         LittleEndian(static_cast<DWORD>(samples.size()), 4) + samples;
}

constexpr AVICOMPRESSOPTIONS kUncompressed = CompressorOptions(mmioFOURCC('D', 'I', 'B', ' '));

class NativeAviTest : public LogFixture {
 protected:
  std::unique_ptr<AviHandle> Create(DWORD period, const WAVEFORMATEX* format) const {
    return CreateAviFile(output_, period, format);
  }

  const platform::GdiplusSession gdiplus_;
  const std::string output_ = temp_ / "out.avi";
};

TEST_F(NativeAviTest, EveryResultCodeHasItsText) {
  const std::vector<std::pair<unsigned, std::string>> texts = {
      {0, "Success"},
      {0x80044065, "AVIERR_UNSUPPORTED: compression is not supported for this type of data"},
      {0x80040154, "REGDB_E_CLASSNOTREG: file type not recognised"},
      {0x80044066, "AVIERR_BADFORMAT: corrupt file or unrecognized format"},
      {0x80044067, "AVIERR_MEMORY: insufficient memory"},
      {0x80044068, "AVIERR_INTERNAL: internal error"},
      {0x80044069, "AVIERR_BADFLAGS"},
      {0x8004406A, "AVIERR_BADPARAM"},
      {0x8004406B, "AVIERR_BADSIZE"},
      {0x8004406C, "AVIERR_BADHANDLE"},
      {0x8004406D, "AVIERR_FILEREAD: disk error while reading file"},
      {0x8004406E, "AVIERR_FILEWRITE: disk error while writing file"},
      {0x8004406F, "AVIERR_FILEOPEN: disk error while opening file"},
      {0x80044070, "AVIERR_COMPRESSOR"},
      {0x80044071, "AVIERR_NOCOMPRESSOR: a suitable compressor could not be found"},
      {0x80044072, "AVIERR_READONLY: file is read-only"},
      {0x80044073, "AVIERR_READONLY"},
      {0x80044074, "AVIERR_BUFFERTOOSMALL"},
      {0x80044075, "AVIERR_CANTCOMPRESS"},
      {0x800440C6, "AVIERR_USERABORT"},
      {0x800440C7, "AVIERR_ERROR"},
      {1, "unknown avi result code"},
      {0x80044076, "unknown avi result code"},
  };
  for (const auto& [code, text] : texts) {
    for (const std::size_t size : {std::size_t{1}, std::size_t{5}, text.size(), text.size() + 1}) {
      std::string buffer(100, '#');
      EXPECT_EQ(AviResultText(Code(code), buffer.data(), size), text.size());
      std::string expected = text.substr(0, size - 1) + '\0';
      expected.resize(100, '#');
      EXPECT_EQ(buffer, expected) << text << " in " << size;
    }
    char untouched = '#';
    EXPECT_EQ(AviResultText(Code(code), &untouched, 0), text.size());
    EXPECT_EQ(untouched, '#');
    EXPECT_EQ(AviResultText(Code(code), nullptr, 9), text.size());
  }
}

TEST_F(NativeAviTest, FramesKeepTheirBytesAndTheHeaderTellsSizeAndRate) {
  for (const int bits : {8, 24, 32}) {
    auto avi = Create(62, nullptr);
    for (const int seed : {1, 2, 3}) {
      EXPECT_EQ(AddVideoFrame(avi.get(), MakeFrame(5, 3, bits, seed).get()), 0);
    }
    // A frame of another size goes into an uncompressed stream as it is.
    EXPECT_EQ(AddVideoFrame(avi.get(), MakeFrame(2, 2, bits, 4).get()), 0);
    EXPECT_EQ(CloseAviFile(std::move(avi)), 0);

    const auto size = static_cast<DWORD>((5 * bits + 31) / 32 * 4 * 3);
    const auto streams = ReadAvi(output_);
    ASSERT_THAT(streams, SizeIs(1));
    const AviStream& video = streams[0];
    EXPECT_EQ(video.header, "vids" + std::string(16, '\0') + LittleEndian(62, 4) +
                                LittleEndian(1000, 4) + LittleEndian(0, 4) + LittleEndian(4, 4) +
                                LittleEndian(size, 4) + std::string(12, '\0') + LittleEndian(5, 2) +
                                LittleEndian(3, 2));
    EXPECT_THAT(video.chunks,
                ElementsAre(Bytes(size, 1), Bytes(size, 2), Bytes(size, 3),
                            Bytes(static_cast<std::size_t>((2 * bits + 31) / 32 * 4 * 2), 4)));
    ColourInfo format = Info(5, 3, bits);
    format.header.biSizeImage = size;
    format.header.biClrUsed = bits == 8 ? 256 : 0;
    EXPECT_EQ(video.format, std::string(reinterpret_cast<const char*>(&format),
                                        sizeof(format.header) + 4 * format.header.biClrUsed));
  }
}

TEST_F(NativeAviTest, SoundStandsBesideTheFrames) {
  for (const int channels : {1, 2}) {
    for (const int bits : {8, 16}) {
      const WAVEFORMATEX format = Pcm(channels, bits);
      // Another format at first sight only: the extra size means nothing here.
      WAVEFORMATEX given = format;
      given.cbSize = 3;
      const std::size_t length = 100U * format.nBlockAlign;
      const std::string wave = WaveImage(format, Bytes(length, 2)) + "LIST";
      std::ofstream(temp_ / "sound.wav", std::ios::binary) << wave;
      // The format comes from the caller, or from the first wave.
      for (const bool isGiven : {true, false}) {
        auto avi = Create(40, isGiven ? &given : nullptr);
        const auto frame = MakeFrame(4, 4, 24, 5);
        EXPECT_EQ(SetVideoCompression(avi.get(), frame.get(), &kUncompressed, false, nullptr), 0);
        if (isGiven) {
          EXPECT_EQ(AddAudio(avi.get(), Bytes(length, 1).data(), static_cast<DWORD>(length)), 0);
        }
        EXPECT_EQ(AddWave(avi.get(), wave.data(), 4), 0);
        EXPECT_EQ(AddVideoFrame(avi.get(), frame.get()), 0);
        EXPECT_EQ(AddWave(avi.get(), (temp_ / "sound.wav").c_str(), 0x20000), 0);
        EXPECT_EQ(AddVideoFrame(avi.get(), MakeFrame(4, 4, 24, 6).get()), 0);
        EXPECT_EQ(CloseAviFile(std::move(avi)), 0);

        const auto streams = ReadAvi(output_);
        ASSERT_THAT(streams, SizeIs(2));
        const AviStream& audio = streams[1];
        EXPECT_EQ(audio.header.substr(0, 4), "auds");
        const DWORD align = format.nBlockAlign;
        EXPECT_EQ(audio.HeaderField(20), align) << "scale";
        EXPECT_EQ(audio.HeaderField(24), 8000 * align) << "rate";
        EXPECT_EQ(audio.HeaderField(40), 0xFFFFFFFF) << "quality";
        EXPECT_EQ(audio.HeaderField(44), align) << "sample size";
        EXPECT_EQ(audio.format.substr(0, 16), wave.substr(20, 16));
        EXPECT_EQ(audio.format.substr(16), LittleEndian(isGiven ? 3 : 0, 2));
        EXPECT_EQ(audio.Content(),
                  (isGiven ? Bytes(length, 1) : "") + Bytes(length, 2) + Bytes(length, 2));
        EXPECT_THAT(streams[0].chunks, ElementsAre(Bytes(48, 5), Bytes(48, 6)));
      }
    }
  }
}

TEST_F(NativeAviTest, BadArgumentsGiveTheirCodesAndLeaveTheHandleUsable) {
  const WAVEFORMATEX stereo = Pcm(2, 16);
  const std::string samples = Bytes(8, 0);
  const std::string wave = WaveImage(stereo, samples);
  const std::string otherWave = WaveImage(Pcm(1, 16), samples);
  const std::string oddWave = WaveImage(stereo, Bytes(7, 0));
  std::string longWave = wave;
  longWave[40] = 9;
  std::string extendedWave = wave;
  extendedWave[16] = 18;
  temp_.Write("short.wav", wave.substr(0, 43));
  const std::string shortFile = temp_ / "short.wav";
  const std::string missing = temp_ / "missing.wav";
  const auto frame = MakeFrame(4, 4, 24, 1);
  const OwnedBitmap noDib(CreateBitmap(4, 4, 1, 32, nullptr));
  const auto set = [](AviHandle* avi, HBITMAP bitmap) {
    return SetVideoCompression(avi, bitmap, &kUncompressed, false, nullptr);
  };
  struct Case {
    const char* what;
    std::function<HRESULT(AviHandle*)> call;
    unsigned code;
  };
  const std::vector<Case> cases = {
      {"set: no handle", [&](auto*) { return set(nullptr, nullptr); }, 0x8004406C},
      {"set: no bitmap", [&](auto* avi) { return set(avi, nullptr); }, 0x8004406A},
      {"set: no DIB section", [&](auto* avi) { return set(avi, noDib.get()); }, 0x8004406A},
      {"frame: no handle", [](auto*) { return AddVideoFrame(nullptr, nullptr); }, 0x8004406C},
      {"frame: no bitmap", [](auto* avi) { return AddVideoFrame(avi, nullptr); }, 0x8004406A},
      {"frame: no DIB", [&](auto* avi) { return AddVideoFrame(avi, noDib.get()); }, 0x8004406A},
      {"audio: no handle", [](auto*) { return AddAudio(nullptr, nullptr, 0); }, 0x8004406C},
      {"audio: no data", [](auto* avi) { return AddAudio(avi, nullptr, 4); }, 0x8004406A},
      {"audio: empty", [&](auto* avi) { return AddAudio(avi, samples.data(), 0); }, 0x8004406A},
      {"audio: uneven", [&](auto* avi) { return AddAudio(avi, samples.data(), 6); }, 0x8004406A},
      {"audio: huge", [&](auto* avi) { return AddAudio(avi, wave.data(), 1U << 31U); }, 0x8004406A},
      {"audio: no format",
       [&](auto* avi) {
         avi->audioFormat = {};
         const HRESULT result = AddAudio(avi, samples.data(), 8);
         avi->audioFormat = stereo;
         return result;
       },
       0x80044066},
      {"wave: no handle", [](auto*) { return AddWave(nullptr, nullptr, 4); }, 0x8004406C},
      {"wave: no source", [](auto* avi) { return AddWave(avi, nullptr, 4); }, 0x8004406A},
      {"wave: kind", [&](auto* avi) { return AddWave(avi, wave.data(), 1); }, 0x80044069},
      {"wave: missing", [&](auto* avi) { return AddWave(avi, missing.data(), 0x20000); },
       0x8004406F},
      {"wave: cut short", [&](auto* avi) { return AddWave(avi, shortFile.data(), 0x20000); },
       0x80044066},
      {"wave: too long", [&](auto* avi) { return AddWave(avi, longWave.data(), 4); }, 0x80044066},
      {"wave: header", [&](auto* avi) { return AddWave(avi, extendedWave.data(), 4); }, 0x80044066},
      {"wave: format", [&](auto* avi) { return AddWave(avi, otherWave.data(), 4); }, 0x80044066},
      {"wave: uneven", [&](auto* avi) { return AddWave(avi, oddWave.data(), 4); }, 0x8004406A},
      {"close: no handle", [](auto*) { return CloseAviFile(nullptr); }, 0x8004406C},
  };
  for (const Case& bad : cases) {
    auto avi = Create(40, &stereo);
    EXPECT_EQ(bad.call(avi.get()), Code(bad.code)) << bad.what;
    EXPECT_EQ(set(avi.get(), frame.get()), 0) << bad.what;
    EXPECT_EQ(AddWave(avi.get(), wave.data(), 4), 0) << bad.what;
    EXPECT_EQ(set(avi.get(), frame.get()), Code(0x80044070)) << "a second compression";
    EXPECT_EQ(AddVideoFrame(avi.get(), frame.get()), 0) << bad.what;
    EXPECT_EQ(CloseAviFile(std::move(avi)), 0) << bad.what;
    EXPECT_TRUE(platform::RemoveFile(output_)) << bad.what << " keeps the file open";
  }
}

TEST_F(NativeAviTest, NothingIsWrittenAfterAFailedCall) {
  const WAVEFORMATEX mono = Pcm(1, 8);
  const auto frame = MakeFrame(4, 4, 24, 1);
  const std::string wave = WaveImage(mono, "1234");
  const AVICOMPRESSOPTIONS noSuchCompressor = CompressorOptions(mmioFOURCC('?', '?', '?', '?'));
  // No stream has a period of 0.
  for (const DWORD period : {0U, 40U}) {
    auto avi = Create(period, &mono);
    const HRESULT failure = period == 0 ? AddVideoFrame(avi.get(), frame.get())
                                        : SetVideoCompression(avi.get(), frame.get(),
                                                              &noSuchCompressor, false, nullptr);
    EXPECT_LT(failure, 0);
    EXPECT_NE(failure, Code(0x800440C7)) << "the code of the call itself";
    EXPECT_EQ(AddVideoFrame(avi.get(), frame.get()), Code(0x800440C7));
    EXPECT_EQ(AddVideoFrame(avi.get(), nullptr), Code(0x8004406A)) << "the bitmap comes first";
    EXPECT_EQ(SetVideoCompression(avi.get(), frame.get(), nullptr, false, nullptr),
              Code(0x800440C7));
    EXPECT_EQ(AddAudio(avi.get(), "1234", 4), Code(0x800440C7));
    EXPECT_EQ(AddWave(avi.get(), wave.data(), 4), Code(0x800440C7));
    EXPECT_EQ(CloseAviFile(std::move(avi)), 0);
    for (const AviStream& stream : ReadAvi(output_)) {
      EXPECT_THAT(stream.chunks, IsEmpty());
    }
    EXPECT_TRUE(platform::RemoveFile(output_));
  }
}

TEST_F(NativeAviTest, ACompressorGetsFullFramesOnly) {
  auto avi = Create(40, nullptr);
  const AVICOMPRESSOPTIONS runLength = CompressorOptions(mmioFOURCC('M', 'R', 'L', 'E'));
  const auto frame = MakeFrame(16, 16, 8, 1);
  EXPECT_EQ(SetVideoCompression(avi.get(), frame.get(), &runLength, false, nullptr), 0);
  EXPECT_EQ(AddVideoFrame(avi.get(), frame.get()), 0);
  EXPECT_EQ(AddVideoFrame(avi.get(), MakeFrame(16, 15, 8, 1).get()), Code(0x8004406B));
  EXPECT_EQ(AddVideoFrame(avi.get(), frame.get()), 0);
  EXPECT_EQ(CloseAviFile(std::move(avi)), 0);
  const auto streams = ReadAvi(output_);
  ASSERT_THAT(streams, SizeIs(1));
  EXPECT_THAT(streams[0].chunks, SizeIs(2));
  EXPECT_EQ(streams[0].format.substr(16, 4), LittleEndian(BI_RLE8, 4));
}

TEST_F(NativeAviTest, AFileThatCannotBeWrittenGivesNoHandle) {
  EXPECT_EQ(CreateAviFile(temp_ / "missing\\out.avi", 40, nullptr), nullptr);
  EXPECT_EQ(CreateAviFile(temp_.Path(), 40, nullptr), nullptr);
  const HANDLE open =
      CreateFileA(output_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  EXPECT_EQ(Create(40, nullptr), nullptr) << "open elsewhere";
  CloseHandle(open);
  EXPECT_NE(Create(40, nullptr), nullptr);
}

TEST_F(NativeAviTest, TheCreatorWritesAllFramesThatLoadAndDeletesAll) {
  // The first frame does not load, so nothing asks for a compressor.
  struct Case {
    int frameRate;
    DWORD scale;
  };
  for (const Case& rate : {Case{16, 62}, Case{25, 40}, Case{1000, 1}, Case{1, 1000}, Case{0, 62},
                           Case{-5, 62}, Case{1001, 0}}) {
    k3dAviCreator creator;
    creator.m_nFrameRate = rate.frameRate;
    creator.m_sOutputFile = output_;
    temp_.Write("bad.bmp", "no image");
    WriteFrameImage(temp_ / "a.bmp", 6, 4, 1);
    WriteFrameImage(temp_ / "b.bmp", 6, 4, 2);
    for (const char* const name : {"bad.bmp", "a.bmp", "missing.bmp", "b.bmp"}) {
      creator.m_caeData.m_saImageFiles.Add(temp_ / name);
    }
    temp_.Write("log.txt", "");
    EXPECT_TRUE(creator.CreateAVI_MS());
    const std::string tag = "TessaraAnimationConsole::k3dAviCreator::CreateAVI_MS:";
    const std::string deletion = "TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles():";
    EXPECT_THAT(Log(), ElementsAre(tag + "Start", tag + "done", deletion + "Start",
                                   deletion + " deleted 4 temp image files", deletion + "End",
                                   tag + "End"));
    EXPECT_THAT(temp_.Names(), ElementsAre("log.txt", "out.avi"));
    const auto streams = ReadAvi(output_);
    if (rate.scale == 0) {
      EXPECT_THAT(streams, IsEmpty()) << "a period of 0";
    } else {
      ASSERT_THAT(streams, SizeIs(1));
      EXPECT_EQ(streams[0].HeaderField(20), rate.scale);
      EXPECT_EQ(streams[0].HeaderField(24), 1000U);
      EXPECT_THAT(streams[0].chunks,
                  ElementsAre(FrameImagePixels(6, 4, 1), FrameImagePixels(6, 4, 2)));
    }
    EXPECT_TRUE(platform::RemoveFile(output_));
  }
}

TEST_F(NativeAviTest, TheCreatorEndsTheSameWayWithoutAResult) {
  // Without a screen the dialog counts as cancelled.
  for (const std::string& output : {output_, temp_ / "missing\\out.avi"}) {
    k3dAviCreator creator;
    creator.m_sOutputFile = output;
    EXPECT_TRUE(creator.CreateAVI_MS()) << "no frames";
    WriteFrameImage(temp_ / "a.bmp", 6, 4, 1);
    creator.m_caeData.m_saImageFiles.Add(temp_ / "a.bmp");
    EXPECT_TRUE(creator.CreateAVI_MS());
    EXPECT_FALSE(platform::QueryAttributes(temp_ / "a.bmp"));
    for (const AviStream& stream : ReadAvi(output)) {
      EXPECT_THAT(stream.chunks, IsEmpty());
    }
  }
}

TEST_F(NativeAviTest, TheExampleWritesUncompressedFramesAndTellsByItsExitStatus) {
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  const TempFolder frames;
  struct Case {
    std::vector<std::string> arguments;
    DWORD scale;
  };
  const std::string& in = frames.Path();
  const std::vector<Case> cases = {
      {{in, output_, "--uncompressed"}, 62},
      {{"--uncompressed", in, output_, "-FR", "25"}, 40},
      {{in, output_, "-FR", "--uncompressed", "25"}, 40},
      {{in, output_, "--uncompressed", "-FR", "1001"}, 0},
      {{in, temp_ / "missing\\out.avi", "--uncompressed"}, 0},
      {{in, temp_ / "missing\\out.avi"}, 0},
      {{temp_.Path(), output_, "--uncompressed"}, 0},
      {{in, "--uncompressed"}, 0},
  };
  for (const Case& run : cases) {
    WriteFrameImage(frames / "f1.bmp", 6, 4, 1);
    WriteFrameImage(frames / "f2.bmp", 6, 4, 2);
    const ProgramResult result = RunProgram(TESSARA_NATIVE_AVI, run.arguments, temp_.Path());
    const bool succeeds = run.scale != 0;
    EXPECT_EQ(result.exitStatus, succeeds ? 0 : 1) << result.output;
    EXPECT_THAT(frames.Names(), SizeIs(succeeds ? 0 : 2)) << "only frames in the file may go";
    if (succeeds) {
      const auto streams = ReadAvi(output_);
      ASSERT_THAT(streams, SizeIs(1));
      EXPECT_EQ(streams[0].HeaderField(20), run.scale);
      EXPECT_THAT(streams[0].chunks,
                  ElementsAre(FrameImagePixels(6, 4, 1), FrameImagePixels(6, 4, 2)));
    }
  }
}

}  // namespace

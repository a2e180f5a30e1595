#include "movie/native_avi/native_avi.h"

#include <gmock/gmock.h>

#include <array>
#include <fstream>
#include <tuple>

#include "movie/avi_creator.h"
#include "movie/native_avi/frame_bitmap.h"
#include "platform/files.h"
#include "platform/gdiplus.h"
#include "tests/support/image_files.h"
#include "tests/support/log_fixture.h"
#include "tests/support/run_program.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::IsSubsetOf;
using testing::IsSupersetOf;
using testing::SizeIs;

constexpr AVICOMPRESSOPTIONS kUncompressed = CompressorOptions(mmioFOURCC('D', 'I', 'B', ' '));

constexpr DWORD kMemory = SND_MEMORY;
constexpr DWORD kFile = SND_FILENAME;

constexpr HRESULT Code(unsigned code) {
  return static_cast<HRESULT>(code);
}

struct ColourInfo {
  BITMAPINFOHEADER header = {};
  std::array<RGBQUAD, 256> colours = {};
};

ColourInfo Info(int width, int height, int bits) {
  ColourInfo info;
  info.header.biSize = sizeof(info.header);
  info.header.biWidth = width;
  info.header.biHeight = height;
  info.header.biPlanes = 1;
  info.header.biBitCount = static_cast<WORD>(bits);
  info.header.biClrUsed = bits == 8 ? 256 : 0;
  info.header.biSizeImage =
      static_cast<DWORD>(width * bits + 31) / 32 * 4 * static_cast<DWORD>(height);
  for (std::size_t index = 0; index < info.colours.size(); ++index) {
    info.colours[index].rgbRed = static_cast<BYTE>(255 - index);
  }
  return info;
}

// A DIB section whose image, all padding included, is Bytes(its size, seed).
OwnedBitmap MakeFrame(int width, int height, int bits, int seed) {
  const ColourInfo info = Info(width, height, bits);
  void* pixels = nullptr;
  OwnedBitmap frame(CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&info),
                                     DIB_RGB_COLORS, &pixels, nullptr, 0));
  Bytes(info.header.biSizeImage, seed).copy(static_cast<char*>(pixels), std::string::npos);
  return frame;
}

HRESULT Set(AviHandle* avi, HBITMAP frame) {
  return SetVideoCompression(avi, frame, &kUncompressed, false, nullptr);
}

WAVEFORMATEX Stereo() {
  return {.wFormatTag = WAVE_FORMAT_PCM,
          .nChannels = 2,
          .nSamplesPerSec = 8000,
          .nAvgBytesPerSec = 32000,
          .nBlockAlign = 4,
          .wBitsPerSample = 16,
          .cbSize = 0};
}

std::string WaveImage(const WAVEFORMATEX& format, const std::string& samples) {
  const auto size = static_cast<DWORD>(samples.size());
  return "RIFF" + LittleEndian(size + 36, 4) + "WAVEfmt " + LittleEndian(16, 4) +
         std::string(reinterpret_cast<const char*>(&format), 16) + "data" + LittleEndian(size, 4) +
         samples;
}

class NativeAviTest : public LogFixture {
 protected:
  const platform::GdiplusSession gdiplus_;
  const std::string output_ = temp_ / "out.avi";
};

TEST_F(NativeAviTest, ResultCodesHaveTextsThatAreCutToTheBuffer) {
  const std::vector<std::tuple<unsigned, std::size_t, std::string>> copies = {
      {0, 8, std::string("Success\0#", 9)},
      {0x8004406F, 9, std::string("AVIERR_F\0#", 10)},
      {0x80044073, 16, std::string("AVIERR_READONLY\0#", 17)},
      {0x80044076, 1, std::string("\0#", 2)},
      {0x800440C7, 0, "#"},
  };
  for (const auto& [code, size, copy] : copies) {
    std::string buffer(copy.size(), '#');
    const std::size_t length = AviResultText(Code(code), buffer.data(), size);
    EXPECT_EQ(buffer, copy);
    EXPECT_EQ(AviResultText(Code(code), nullptr, 9), length);
  }
  EXPECT_EQ(AviResultText(1, nullptr, 0), std::string("unknown avi result code").size());
}

TEST_F(NativeAviTest, FramesKeepTheirBytesAndTheHeaderTellsSizeAndRate) {
  for (const int bits : {8, 24, 32}) {
    auto avi = CreateAviFile(output_, 62, nullptr);
    EXPECT_EQ(AddVideoFrame(avi.get(), MakeFrame(5, 3, bits, 1).get()), 0);
    EXPECT_EQ(AddVideoFrame(avi.get(), MakeFrame(5, 3, bits, 2).get()), 0);
    // A frame of another size goes into an uncompressed stream as it is.
    EXPECT_EQ(AddVideoFrame(avi.get(), MakeFrame(2, 2, bits, 3).get()), 0);
    EXPECT_EQ(CloseAviFile(std::move(avi)), 0);

    const auto streams = ReadAvi(output_);
    ASSERT_THAT(streams, SizeIs(1));
    const ColourInfo info = Info(5, 3, bits);
    const DWORD size = info.header.biSizeImage;
    EXPECT_EQ(streams[0].header,
              "vids" + std::string(16, '\0') + LittleEndian(62, 4) + LittleEndian(1000, 4) +
                  LittleEndian(0, 4) + LittleEndian(3, 4) + LittleEndian(size, 4) +
                  std::string(12, '\0') + LittleEndian(5, 2) + LittleEndian(3, 2));
    EXPECT_EQ(streams[0].format,
              std::string(reinterpret_cast<const char*>(&info), bits == 8 ? 40 + 1024 : 40));
    EXPECT_THAT(streams[0].chunks, ElementsAre(Bytes(size, 1), Bytes(size, 2),
                                               Bytes(Info(2, 2, bits).header.biSizeImage, 3)));
  }
}

TEST_F(NativeAviTest, ADecimalRateIsExactInTheHeaderOrRefused) {
  const std::vector<std::tuple<const char*, DWORD, DWORD>> rates = {
      {"0.0014", 7, 5000}, {"29.970", 2997, 100}, {"2147483647", 2147483647, 1}};
  for (const auto& [decimal, rate, scale] : rates) {
    AddVideoFrame(CreateAviFile(output_, ExactFrameRate(decimal).value(), nullptr).get(),
                  MakeFrame(4, 4, 24, 1).get());
    EXPECT_EQ(ReadAvi(output_).at(0).header.substr(20, 8),
              LittleEndian(scale, 4) + LittleEndian(rate, 4));
  }
  for (const char* const refused : {"0.0", "2147483648", "0.000232", "18446744073709551632"}) {
    EXPECT_FALSE(ExactFrameRate(refused)) << refused;
  }
}

TEST_F(NativeAviTest, SoundStandsBesideTheFrames) {
  std::string path = temp_ / "sound.wav";
  const WAVEFORMATEX stereo = Stereo();
  std::string wave = WaveImage(stereo, Bytes(400, 2));
  std::ofstream(path, std::ios::binary) << wave << "LIST";
  // The format is the caller's, here with an extra size that means nothing, or the first wave's.
  for (const WORD extra : {WORD{0}, WORD{3}}) {
    WAVEFORMATEX given = stereo;
    given.cbSize = extra;
    auto avi = CreateAviFile(output_, 40, extra == 0 ? nullptr : &given);
    const auto frame = MakeFrame(4, 4, 24, 5);
    EXPECT_EQ(Set(avi.get(), frame.get()), 0);
    EXPECT_EQ(AddWave(avi.get(), wave.data(), kMemory), 0);
    EXPECT_EQ(AddVideoFrame(avi.get(), frame.get()), 0);
    EXPECT_EQ(AddWave(avi.get(), path.data(), kFile), 0);
    EXPECT_EQ(AddAudio(avi.get(), Bytes(8, 3).data(), 8), 0);
    EXPECT_EQ(CloseAviFile(std::move(avi)), 0);

    const auto streams = ReadAvi(output_);
    ASSERT_THAT(streams, SizeIs(2));
    EXPECT_THAT(streams[0].chunks, ElementsAre(Bytes(48, 5)));
    const AviStream& audio = streams[1];
    EXPECT_EQ(audio.header.substr(0, 4), "auds");
    EXPECT_EQ(audio.header.substr(20, 8), LittleEndian(4, 4) + LittleEndian(32000, 4));
    EXPECT_EQ(audio.header.substr(40, 8), "\xFF\xFF\xFF\xFF" + LittleEndian(4, 4));
    EXPECT_EQ(audio.format, wave.substr(20, 16) + LittleEndian(extra, 2));
    EXPECT_EQ(audio.content, Bytes(400, 2) + Bytes(400, 2) + Bytes(8, 3));
  }
}

TEST_F(NativeAviTest, BadArgumentsGiveTheirCodesAndLeaveTheHandleUsable) {
  const WAVEFORMATEX stereo = Stereo();
  const std::string wave = WaveImage(stereo, Bytes(8, 0));
  const auto changed = [&](std::size_t offset, char value) {
    std::string image = wave;
    image[offset] = value;
    return image;
  };
  const OwnedBitmap noDib(CreateBitmap(4, 4, 1, 32, nullptr));
  const auto frame = MakeFrame(4, 4, 24, 1);
  temp_.Write("short.wav", wave.substr(0, 43));
  const std::string missing = temp_ / "missing.wav";
  const std::string cut = temp_ / "short.wav";
  auto owned = CreateAviFile(output_, 40, &stereo);
  AviHandle* const avi = owned.get();
  const std::vector<std::tuple<const char*, HRESULT, unsigned>> results = {
      {"set: no handle", Set(nullptr, nullptr), 0x8004406C},
      {"set: no DIB section", Set(avi, noDib.get()), 0x8004406A},
      {"audio: empty", AddAudio(avi, wave.data(), 0), 0},
      {"audio: no whole samples", AddAudio(avi, wave.data(), 6), 0x8004406A},
      {"audio: too much", AddAudio(avi, wave.data(), 0x80000000), 0x8004406A},
      {"audio: no format",
       AddAudio(CreateAviFile(temp_ / "silent.avi", 40, nullptr).get(), wave.data(), 4),
       0x80044066},
      {"wave: unknown kind", AddWave(avi, wave.data(), 1), 0x80044069},
      {"wave: missing file", AddWave(avi, missing.data(), kFile), 0x8004406F},
      {"wave: cut file", AddWave(avi, cut.data(), kFile), 0x80044066},
      {"wave: no RIFF", AddWave(avi, changed(0, 'r').data(), kMemory), 0x80044066},
      {"wave: missing data", AddWave(avi, changed(40, 9).data(), kMemory), 0x80044066},
      {"wave: no whole samples", AddWave(avi, changed(40, 6).data(), kMemory), 0x8004406A},
      {"wave: other format", AddWave(avi, changed(25, 1).data(), kMemory), 0x80044066},
      {"close: no handle", CloseAviFile(nullptr), 0x8004406C},
      {"set", Set(avi, frame.get()), 0},
      {"set again", Set(avi, frame.get()), 0x80044070},
      {"close", CloseAviFile(std::move(owned)), 0},
  };
  for (const auto& [what, result, code] : results) {
    EXPECT_EQ(result, Code(code)) << what;
  }
  for (const char* const name : {"out.avi", "silent.avi", "short.wav"}) {
    EXPECT_TRUE(platform::RemoveFile(temp_ / name)) << name << " is still open";
  }
}

TEST_F(NativeAviTest, NothingIsWrittenAfterAFailedCall) {
  const WAVEFORMATEX stereo = Stereo();
  const auto frame = MakeFrame(4, 4, 24, 1);
  // No stream has a period of 0.
  auto avi = CreateAviFile(output_, 0, &stereo);
  const HRESULT failure = AddVideoFrame(avi.get(), frame.get());
  EXPECT_LT(failure, 0);
  EXPECT_NE(failure, Code(0x800440C7)) << "the code of the call itself";
  EXPECT_EQ(AddVideoFrame(avi.get(), frame.get()), Code(0x800440C7));
  EXPECT_EQ(Set(avi.get(), frame.get()), Code(0x800440C7));
  EXPECT_EQ(AddAudio(avi.get(), "1234", 4), Code(0x800440C7));
  EXPECT_EQ(CloseAviFile(std::move(avi)), 0);
  EXPECT_THAT(ReadAvi(output_), IsEmpty());
}

// A caller whose call was refused still owns what its options point to, and may try again with it.
TEST_F(NativeAviTest, ACompressorGetsFullFramesOnlyAndFreesItsOptions) {
  AVICOMPRESSOPTIONS runLength = CompressorOptions(mmioFOURCC('M', 'R', 'L', 'E'));
  runLength.cbParms = 1 << 20;
  runLength.lpParms = HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, runLength.cbParms);
  const auto isAlive = [&] { return HeapValidate(GetProcessHeap(), 0, runLength.lpParms) != 0; };
  auto avi = CreateAviFile(output_, 40, nullptr);
  const auto frame = MakeFrame(16, 16, 8, 1);
  EXPECT_EQ(SetVideoCompression(avi.get(), nullptr, &runLength, false, nullptr), Code(0x8004406A));
  EXPECT_TRUE(isAlive());
  EXPECT_EQ(SetVideoCompression(avi.get(), frame.get(), &runLength, false, nullptr), 0);
  EXPECT_FALSE(isAlive());
  EXPECT_EQ(AddVideoFrame(avi.get(), frame.get()), 0);
  EXPECT_EQ(AddVideoFrame(avi.get(), MakeFrame(16, 15, 8, 1).get()), Code(0x8004406B));
  EXPECT_EQ(CloseAviFile(std::move(avi)), 0);
  const auto streams = ReadAvi(output_);
  ASSERT_THAT(streams, SizeIs(1));
  EXPECT_THAT(streams[0].chunks, SizeIs(1));
  EXPECT_EQ(streams[0].format.substr(16, 4), LittleEndian(1, 4)) << "run-length coded";
}

TEST_F(NativeAviTest, TheCreatorWritesAllFramesThatLoadAndDeletesAll) {
  const std::string tag = "TessaraAnimationConsole::k3dAviCreator::CreateAVI_MS:";
  const std::string deletion =
      "TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles(): deleted 4 temp image files";
  // The first frame does not load, so nothing asks for a compressor.
  const std::vector<std::string> names = {"bad.bmp", "a.bmp", "missing.bmp", "b.bmp"};
  for (const std::string& output : {output_, temp_ / "missing\\out.avi"}) {
    temp_.Write("bad.bmp", "no image");
    WriteBitmapFile(temp_ / "a.bmp", 6, Pixels(24, 1));
    WriteBitmapFile(temp_ / "b.bmp", 6, Pixels(24, 2));
    k3dAviCreator creator;
    creator.m_sOutputFile = output;
    for (const std::string& name : names) {
      creator.m_caeData.m_saImageFiles.Add(temp_ / name);
    }
    EXPECT_TRUE(creator.CreateAVI_MS());
    EXPECT_THAT(temp_.Names(), IsSubsetOf({"log.txt", "out.avi"}));
  }
  EXPECT_THAT(Log(), IsSupersetOf({tag + "Start", tag + "done", tag + "End", deletion}));
  const auto streams = ReadAvi(output_);
  ASSERT_THAT(streams, SizeIs(1));
  EXPECT_EQ(streams[0].header.substr(20, 8), LittleEndian(62, 4) + LittleEndian(1000, 4));
  EXPECT_THAT(streams[0].chunks, ElementsAre(Pixels(24, 1), Pixels(24, 2)));
  EXPECT_EQ(FramePeriod(1000), 1U);
  EXPECT_EQ(FramePeriod(1001), 0U);
  EXPECT_EQ(FramePeriod(-5), 62U);
}

TEST_F(NativeAviTest, TheExampleWritesUncompressedFramesAndLooksAtThem) {
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  const TempFolder frames;
  const struct {
    std::vector<std::string> options;
    std::string output;
    int secondWidth;
    // In the output; 0 for none.
    DWORD scale;
    std::string line;
  } kCases[] = {
      {{"-FR", "25", "--uncompressed"}, output_, 6, 40, output_ + ": 2 of 2 frames"},
      {{"--uncompressed", "-FR", "1001"}, output_, 6, 0, output_ + ": 0 of 2 frames"},
      {{"--uncompressed"},
       output_,
       8,
       0,
       frames / "f2.bmp" + ": is 8x3 pixels, the first frame is 6x4"},
      {{}, temp_ / "missing\\out.avi", 6, 0, ": cannot be created"},
  };
  for (const auto& c : kCases) {
    WriteBitmapFile(frames / "f1.bmp", 6, Pixels(24, 1));
    WriteBitmapFile(frames / "f2.bmp", c.secondWidth, Pixels(24, 2));
    std::vector<std::string> arguments = {frames.Path(), c.output};
    arguments.insert(arguments.end(), c.options.begin(), c.options.end());
    const ProgramResult result = RunProgram(TESSARA_NATIVE_AVI, arguments, temp_.Path());
    EXPECT_EQ(result.exitStatus, c.scale != 0 ? 0 : 1);
    EXPECT_THAT(result.output, EndsWith(c.line + "\n"));
    EXPECT_THAT(frames.Names(), SizeIs(c.scale != 0 ? 0 : 2)) << "only frames in the file may go";
    const auto streams = ReadAvi(output_);
    EXPECT_THAT(streams, SizeIs(c.scale != 0 ? 1 : 0));
    for (const AviStream& video : streams) {
      EXPECT_EQ(video.header.substr(20, 4), LittleEndian(c.scale, 4));
      EXPECT_THAT(video.chunks, ElementsAre(Pixels(24, 1), Pixels(24, 2)));
    }
    platform::RemoveFile(output_);
  }
}

}  // namespace

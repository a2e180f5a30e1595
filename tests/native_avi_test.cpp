#include "movie/native_avi/native_avi.h"

#include <gmock/gmock.h>

#include <array>
#include <tuple>

#include "movie/avi_creator.h"
#include "movie/native_avi/frame_bitmap.h"
#include "platform/files.h"
#include "platform/gdiplus.h"
#include "tests/support/image_files.h"
#include "tests/support/log_fixture.h"
#include "tests/support/run_program.h"

namespace {

using namespace testing;

constexpr WAVEFORMATEX kStereo = {WAVE_FORMAT_PCM, 2, 8000, 32000, 4, 16, 0};

constexpr HRESULT Code(unsigned code) {
  return static_cast<HRESULT>(code);
}

int ImageSize(int width, int height, int bits) {
  return (width * bits + 31) / 32 * 4 * height;
}

// A bitmap's header, and its colours where it has a table of them.
std::string Format(int width, int height, int bits) {
  std::string colours;
  for (int index = 0; bits == 8 && index < 256; ++index) {
    colours += LittleEndian(0x10203 * index, 3) + '\0';
  }
  return LittleEndian(40, 4) + LittleEndian(width, 4) + LittleEndian(height, 4) +
         LittleEndian(1, 2) + LittleEndian(bits, 2) + LittleEndian(0, 4) +
         LittleEndian(ImageSize(width, height, bits), 4) + std::string(8, '\0') +
         LittleEndian(bits == 8 ? 256 : 0, 4) + LittleEndian(0, 4) + colours;
}

// A DIB section whose image, all padding included, is Bytes(its size, seed).
OwnedBitmap MakeFrame(int width, int height, int bits, int seed) {
  const std::string format = Format(width, height, bits);
  void* pixels = nullptr;
  OwnedBitmap frame(CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(format.data()),
                                     DIB_RGB_COLORS, &pixels, nullptr, 0));
  Bytes(ImageSize(width, height, bits), seed).copy(static_cast<char*>(pixels), std::string::npos);
  return frame;
}

HRESULT Set(AviHandle* avi, const OwnedBitmap& frame,
            const AVICOMPRESSOPTIONS& options = CompressorOptions(mmioFOURCC('D', 'I', 'B', ' '))) {
  return SetVideoCompression(avi, frame.get(), &options, false, nullptr);
}

std::string WaveImage(const std::string& samples) {
  const int size = static_cast<int>(samples.size());
  return "RIFF" + LittleEndian(size + 36, 4) + "WAVEfmt " + LittleEndian(16, 4) +
         std::string(reinterpret_cast<const char*>(&kStereo), 16) + "data" + LittleEndian(size, 4) +
         samples;
}

class NativeAviTest : public LogFixture {
 protected:
  // The one stream of the output.
  AviStream OnlyStream() const {
    const auto streams = ReadAvi(output_);
    EXPECT_THAT(streams, SizeIs(1));
    return streams.empty() ? AviStream() : streams[0];
  }

  const platform::GdiplusSession gdiplus_;
  const std::string output_ = temp_ / "out.avi";
};

TEST_F(NativeAviTest, ResultCodesHaveTextsThatAreCutToTheBuffer) {
  const std::tuple<unsigned, std::size_t, std::string> copies[] = {
      {0, 8, std::string("Success\0#", 9)},
      {0x8004406F, 9, std::string("AVIERR_F\0#", 10)},
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

TEST_F(NativeAviTest, FramesAndSoundKeepTheirBytesAndTheHeadersTellTheRest) {
  std::string wave = WaveImage(Bytes(400, 2));
  temp_.Write("sound.wav", wave + "LIST");
  for (const int bits : {8, 24, 32}) {
    // The sound's format is the caller's, here with an extra size that means nothing, or that of
    // the first wave.
    WAVEFORMATEX given = kStereo;
    given.cbSize = bits == 8 ? 3 : 0;
    auto avi = CreateAviFile(output_, 62, bits == 8 ? &given : nullptr);
    EXPECT_EQ(Set(avi.get(), MakeFrame(5, 3, bits, 1)), 0);
    EXPECT_EQ(AddWave(avi.get(), wave.data(), SND_MEMORY), 0);
    EXPECT_EQ(AddVideoFrame(avi.get(), MakeFrame(5, 3, bits, 1).get()), 0);
    // A frame of another size goes into an uncompressed stream as it is.
    EXPECT_EQ(AddVideoFrame(avi.get(), MakeFrame(2, 2, bits, 3).get()), 0);
    EXPECT_EQ(AddWave(avi.get(), (temp_ / "sound.wav").data(), SND_FILENAME), 0);
    EXPECT_EQ(AddAudio(avi.get(), Bytes(8, 3).data(), 8), 0);
    EXPECT_EQ(CloseAviFile(std::move(avi)), 0);

    const auto streams = ReadAvi(output_);
    ASSERT_THAT(streams, SizeIs(2));
    const int size = ImageSize(5, 3, bits);
    EXPECT_EQ(streams[0].header,
              "vids" + std::string(16, '\0') + LittleEndian(62, 4) + LittleEndian(1000, 4) +
                  LittleEndian(0, 4) + LittleEndian(2, 4) + LittleEndian(size, 4) +
                  std::string(12, '\0') + LittleEndian(5, 2) + LittleEndian(3, 2));
    EXPECT_EQ(streams[0].format, Format(5, 3, bits));
    EXPECT_THAT(streams[0].chunks, ElementsAre(Bytes(size, 1), Bytes(ImageSize(2, 2, bits), 3)));
    EXPECT_EQ(streams[1].header.substr(0, 4), "auds");
    EXPECT_EQ(streams[1].header.substr(20, 8), LittleEndian(4, 4) + LittleEndian(32000, 4));
    EXPECT_EQ(streams[1].header.substr(40, 8), "\xFF\xFF\xFF\xFF" + LittleEndian(4, 4));
    EXPECT_EQ(streams[1].format, wave.substr(20, 16) + LittleEndian(given.cbSize, 2));
    EXPECT_EQ(streams[1].content, Bytes(400, 2) + Bytes(400, 2) + Bytes(8, 3));
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

TEST_F(NativeAviTest, BadArgumentsGiveTheirCodesAndLeaveTheHandleUsable) {
  const std::string wave = WaveImage(Bytes(8, 0));
  const auto frame = MakeFrame(4, 4, 24, 1);
  auto owned = CreateAviFile(output_, 40, &kStereo);
  AviHandle* const avi = owned.get();
  // A wave with one byte of it changed.
  const auto addChanged = [&](std::size_t offset, char value) {
    std::string image = wave;
    image[offset] = value;
    return AddWave(avi, image.data(), SND_MEMORY);
  };
  temp_.Write("short.wav", wave.substr(0, 43));
  // No stream has a period of 0, so nothing is written any more after this call.
  auto failed = CreateAviFile(temp_ / "failed", 0, &kStereo);
  const HRESULT failure = AddVideoFrame(failed.get(), frame.get());
  EXPECT_TRUE(failure < 0 && failure != Code(0x800440C7)) << "the code of the call itself";
  const std::tuple<const char*, HRESULT, unsigned> results[] = {
      {"set: no handle", Set(nullptr, nullptr), 0x8004406C},
      {"set: no DIB", Set(avi, OwnedBitmap(CreateBitmap(4, 4, 1, 32, nullptr))), 0x8004406A},
      {"audio: empty", AddAudio(avi, wave.data(), 0), 0},
      {"audio: no whole samples", AddAudio(avi, wave.data(), 6), 0x8004406A},
      {"audio: too much", AddAudio(avi, wave.data(), 0x80000000), 0x8004406A},
      {"audio: no format", AddAudio(CreateAviFile(temp_ / "mute", 40, nullptr).get(), "1234", 4),
       0x80044066},
      {"wave: unknown kind", AddWave(avi, wave.data(), 1), 0x80044069},
      {"wave: no file", AddWave(avi, (temp_ / "no.wav").data(), SND_FILENAME), 0x8004406F},
      {"wave: cut file", AddWave(avi, (temp_ / "short.wav").data(), SND_FILENAME), 0x80044066},
      {"wave: no RIFF", addChanged(0, 'r'), 0x80044066},
      {"wave: missing data", addChanged(40, 9), 0x80044066},
      {"wave: no whole samples", addChanged(40, 6), 0x8004406A},
      {"wave: other format", addChanged(25, 1), 0x80044066},
      {"failed: frame", AddVideoFrame(failed.get(), frame.get()), 0x800440C7},
      {"failed: set", Set(failed.get(), frame), 0x800440C7},
      {"failed: audio", AddAudio(failed.get(), "1234", 4), 0x800440C7},
      {"failed: close", CloseAviFile(std::move(failed)), 0},
      {"close: no handle", CloseAviFile(nullptr), 0x8004406C},
      {"set", Set(avi, frame), 0},
      {"set again", Set(avi, frame), 0x80044070},
      {"close", CloseAviFile(std::move(owned)), 0},
  };
  for (const auto& [what, result, code] : results) {
    EXPECT_EQ(result, Code(code)) << what;
  }
  EXPECT_THAT(ReadAvi(temp_ / "failed"), IsEmpty());
  for (const char* const name : {"out.avi", "mute", "failed", "short.wav"}) {
    EXPECT_TRUE(platform::RemoveFile(temp_ / name)) << name << " is still open";
  }
}

// A caller whose call was refused still owns what its options point to, and may try again with it.
TEST_F(NativeAviTest, ACompressorGetsFullFramesOnlyAndFreesItsOptions) {
  AVICOMPRESSOPTIONS runLength = CompressorOptions(mmioFOURCC('M', 'R', 'L', 'E'));
  runLength.cbParms = 1 << 20;
  runLength.lpParms = HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, runLength.cbParms);
  const auto isAlive = [&] { return HeapValidate(GetProcessHeap(), 0, runLength.lpParms) != 0; };
  auto avi = CreateAviFile(output_, 40, nullptr);
  const auto frame = MakeFrame(16, 16, 8, 1);
  EXPECT_EQ(Set(avi.get(), nullptr, runLength), Code(0x8004406A));
  EXPECT_TRUE(isAlive());
  EXPECT_EQ(Set(avi.get(), frame, runLength), 0);
  EXPECT_FALSE(isAlive());
  EXPECT_EQ(AddVideoFrame(avi.get(), frame.get()), 0);
  EXPECT_EQ(AddVideoFrame(avi.get(), MakeFrame(16, 15, 8, 1).get()), Code(0x8004406B));
  EXPECT_EQ(CloseAviFile(std::move(avi)), 0);
  const AviStream video = OnlyStream();
  EXPECT_THAT(video.chunks, SizeIs(1));
  EXPECT_EQ(video.format.substr(16, 4), LittleEndian(1, 4)) << "run-length coded";
}

TEST_F(NativeAviTest, TheCreatorWritesAllFramesThatLoadAndDeletesAll) {
  for (const std::string& output : {output_, temp_ / "missing\\out.avi"}) {
    k3dAviCreator creator;
    creator.m_sOutputFile = output;
    // The first frame does not load, so nothing asks for a compressor.
    temp_.Write("bad.bmp", "no image");
    temp_.Write("a.bmp", BitmapFile(6, Pixels(24, 1)));
    temp_.Write("b.bmp", BitmapFile(6, Pixels(24, 2)));
    for (const char* name : {"bad.bmp", "a.bmp", "missing.bmp", "b.bmp"}) {
      creator.m_caeData.m_saImageFiles.Add(temp_ / name);
    }
    EXPECT_TRUE(creator.CreateAVI_MS());
    EXPECT_THAT(temp_.Names(), IsSubsetOf({"log.txt", "out.avi"}));
  }
  const std::string tag = "TessaraAnimationConsole::";
  EXPECT_THAT(Log(), IsSupersetOf({tag + "k3dAviCreator::CreateAVI_MS:Start",
                                   tag + "k3dAviCreator::CreateAVI_MS:done",
                                   tag + "k3dAviCreator::CreateAVI_MS:End"}));
  EXPECT_EQ(OnlyStream().header.substr(20, 8), LittleEndian(62, 4) + LittleEndian(1000, 4));
  EXPECT_THAT(OnlyStream().chunks, ElementsAre(Pixels(24, 1), Pixels(24, 2)));
  EXPECT_THAT((std::array{FramePeriod(1000), FramePeriod(1001), FramePeriod(-5)}),
              ElementsAre(1, 0, 62));
}

TEST_F(NativeAviTest, TheExampleDeletesOnlyFramesThatAreInTheFile) {
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  const TempFolder frames;
  const struct {
    std::string output, rate;
    int secondWidth;
    std::string line;
  } kCases[] = {
      {output_, "25", 6, output_ + ": 2 of 2 frames"},
      {output_ + "2", "1001", 6, output_ + "2: 0 of 2 frames"},
      {output_ + "2", "25", 8, frames / "f2.bmp" + ": is 8x3 pixels, the first frame is 6x4"},
      {temp_ / "missing\\out.avi", "25", 6, ": cannot be created"},
  };
  for (const auto& c : kCases) {
    frames.Write("f1.bmp", BitmapFile(6, Pixels(24, 1)));
    frames.Write("f2.bmp", BitmapFile(c.secondWidth, Pixels(24, 2)));
    const ProgramResult result =
        RunProgram(TESSARA_NATIVE_AVI, {frames.Path(), c.output, "--uncompressed", "-FR", c.rate},
                   temp_.Path());
    EXPECT_EQ(result.exitStatus, c.output == output_ ? 0 : 1);
    EXPECT_THAT(result.output, EndsWith(c.line + "\n"));
    EXPECT_THAT(frames.Names(), SizeIs(c.output == output_ ? 0 : 2));
  }
  EXPECT_EQ(OnlyStream().header.substr(20, 4), LittleEndian(40, 4));
  EXPECT_THAT(OnlyStream().chunks, ElementsAre(Pixels(24, 1), Pixels(24, 2)));
}

}  // namespace

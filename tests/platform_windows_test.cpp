#include <gmock/gmock.h>
#include <windows.h>

#include <string>

#include "animate/frame_search.h"
#include "log/working_folders.h"
#include "platform/file_system.h"
#include "tests/support/program_fixture.h"

namespace {

class WindowsTest : public ProgramFixture {
 protected:
  // Opens a file for reading as another program would, sharing what `share` says.
  static HANDLE Open(const std::string& path, DWORD share) {
    return CreateFileA(path.c_str(), GENERIC_READ, share, nullptr, OPEN_ALWAYS, 0, nullptr);
  }
};

TEST_F(WindowsTest, AFrameThatIsOpenElsewhereStaysAndTheLogIsShared) {
  UseRecordingConverter();
  frames_.WriteAll({"a1.png", "a2.png", "a3.png"});
  auto* const frame = Open(frames_ / "a2.png", 0);
  auto* const log = Open(temp_ / "TessaraMovieConsole_Log.txt", FILE_SHARE_READ | FILE_SHARE_WRITE);
  Run({frames_.Path(), "out.wmv"});
  CloseHandle(frame);
  CloseHandle(log);
  EXPECT_THAT(frames_.Names(), testing::ElementsAre("a2.png"));
  EXPECT_THAT(Log(), testing::Contains(testing::EndsWith("RenameTheImageFiles():CopyFile failed")));
}

TEST_F(WindowsTest, TempFolderWithAFurtherAttributeIsNotUsed) {
  SetVariable("TESSARA_TEMP_PATH", nullptr);
  SetVariable("TEMP", temp_.Path().c_str());
  EXPECT_EQ(GetTempRootFolder(), temp_ / "Tessara");
  SetFileAttributesA((temp_ / "Tessara").c_str(), FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(GetTempRootFolder(), temp_.Path());
}

TEST_F(WindowsTest, SaysWhereNoFileCanBePut) {
  frames_.WriteAll({"old.mp4", "read-only.mp4"});
  SetFileAttributesA((frames_ / "read-only.mp4").c_str(), FILE_ATTRIBUTE_READONLY);
  for (const char* name : {"read-only.mp4", "a?b.mp4", "a:b.mp4", "a\tb.mp4"}) {
    EXPECT_FALSE(platform::PlaceFor(frames_ / name)) << name;
  }
  for (const char* name : {"old.mp4", "new.mp4"}) {
    EXPECT_TRUE(platform::PlaceFor(frames_ / name)) << name;
  }
  SetFileAttributesA((frames_ / "read-only.mp4").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsTest, FindsAFrameByItsNameInOtherCase) {
  frames_.WriteAll({"f_1.png", "f_2.png"});
  animate::Options options;
  options.frames = frames_ / "F_2.PNG";
  EXPECT_EQ(animate::FindFrames(options).findings.frames.size(), 2U);
}

TEST_F(WindowsTest, ProgramCarriesItsVersion) {
  const std::string program = home_ / "program.exe";
  std::string block(GetFileVersionInfoSizeA(program.c_str(), nullptr), '\0');
  GetFileVersionInfoA(program.c_str(), 0, static_cast<DWORD>(block.size()), block.data());
  char* version = nullptr;
  UINT length = 0;
  ASSERT_TRUE(VerQueryValueA(block.data(), "\\StringFileInfo\\040904E4\\FileVersion",
                             reinterpret_cast<void**>(&version), &length));
  EXPECT_STREQ(version, TESSARA_VERSION);
}

}  // namespace

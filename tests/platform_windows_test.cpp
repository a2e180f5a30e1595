#include <gmock/gmock.h>
#include <windows.h>

#include <memory>
#include <string>

#include "log/working_folders.h"
#include "tests/support/program_fixture.h"

namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class WindowsTest : public ProgramFixture {};

constexpr char kSuccess[] = "\n\n Animation created successfully!!!\n\n";

TEST_F(WindowsTest, FrameOpenElsewhereIsNeitherCopiedNorDeleted) {
  UseRecordingConverter();
  frames_.WriteAll({"a1.png", "a2.png", "a3.png", "a4.png"});
  const HANDLE open = CreateFileA((frames_ / "a2.png").c_str(), GENERIC_READ, 0, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(open, INVALID_HANDLE_VALUE);
  SetFileAttributesA((frames_ / "a3.png").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(Run({frames_.Path(), "out.gif"}).output, kSuccess);
  CloseHandle(open);
  EXPECT_THAT(
      Log(),
      Contains("TessaraAnimationConsole::k3dAviCreator::RenameTheImageFiles():CopyFile failed"));
  // A copy takes the read-only attribute over and so outlives the run like its frame.
  EXPECT_THAT(frames_.Names(), ElementsAre("_console_qmbImgTemp_3.png", "a2.png", "a3.png"));
  for (const char* name : {"a3.png", "_console_qmbImgTemp_3.png"}) {
    SetFileAttributesA((frames_ / name).c_str(), FILE_ATTRIBUTE_NORMAL);
  }
}

TEST_F(WindowsTest, TempFolderWithAFurtherAttributeIsNotUsed) {
  SetVariable("TESSARA_TEMP_PATH", nullptr);
  SetVariable("TEMP", temp_.Path().c_str());
  EXPECT_EQ(GetTempRootFolder(), temp_ / "Tessara");
  SetFileAttributesA((temp_ / "Tessara").c_str(), FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(GetTempRootFolder(), temp_.Path());
}

// Whether such paths work depends on the system; either way the run ends by itself.
TEST_F(WindowsTest, PathsAroundTheSystemsLimit) {
  UseRecordingConverter();
  for (const int length : {230, 245, 256}) {
    const std::string deep(static_cast<std::size_t>(length) - frames_.Path().size(), 'd');
    frames_.MakeFolder(deep);
    frames_.WriteAll({deep + "/a1.png", deep + "/a2.png"});
    const ProgramResult result = Run({frames_ / deep, "out.gif"});
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_THAT(result.output, AnyOf(kSuccess, HasSubstr("Failed"))) << length;
    EXPECT_EQ(Log().back(), "TessaraAnimationConsole::End");
  }
}

TEST_F(WindowsTest, LogCanBeOpenElsewhere) {
  const HANDLE reader =
      CreateFileA((temp_ / "TessaraMovieConsole_Log.txt").c_str(), GENERIC_READ,
                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, CREATE_ALWAYS, 0, nullptr);
  Run({"x"});
  CloseHandle(reader);
  EXPECT_EQ(Log().size(), 7U);
}

TEST_F(WindowsTest, ProgramCarriesItsVersion) {
  const std::string program = home_ / "program.exe";
  DWORD ignored = 0;
  std::string block(GetFileVersionInfoSizeA(program.c_str(), &ignored), '\0');
  ASSERT_TRUE(
      GetFileVersionInfoA(program.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
  VS_FIXEDFILEINFO* fixed = nullptr;
  UINT length = 0;
  ASSERT_TRUE(VerQueryValueA(block.data(), "\\", reinterpret_cast<void**>(&fixed), &length));
  EXPECT_EQ(fixed->dwFileVersionMS, 2U << 16);
  EXPECT_EQ(fixed->dwFileVersionLS, 224U << 16 | 208U);
}

}  // namespace

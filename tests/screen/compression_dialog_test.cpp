#include <gmock/gmock.h>
#include <windows.h>

#include <future>

#include "tests/support/image_files.h"
#include "tests/support/log_fixture.h"
#include "tests/support/run_program.h"

namespace {

using testing::Contains;
using testing::IsEmpty;

// Waits until the compression dialog shows and presses `button`. Returns whether it came.
bool AnswerDialog(WORD button) {
  for (int attempt = 0; attempt < 600; ++attempt) {
    auto* const dialog = FindWindowA("#32770", "Video Compression");
    if (dialog != nullptr && IsWindowVisible(dialog) != 0) {
      return PostMessageA(dialog, WM_COMMAND, button, 0) != 0;
    }
    Sleep(50);
  }
  return false;
}

class CompressionDialogTest : public LogFixture {};

TEST_F(CompressionDialogTest, OkWritesTheFramesAndCancelNone) {
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  const std::string output = temp_ / "out.avi";
  const std::string tag = "TessaraAnimationConsole::k3dAviCreator::CreateAVI_MS:";
  for (const WORD button : {WORD{IDOK}, WORD{IDCANCEL}}) {
    const TempFolder frames;
    WriteBitmapFile(frames / "f1.bmp", 8, Pixels(32, 1));
    WriteBitmapFile(frames / "f2.bmp", 8, Pixels(32, 2));
    auto run = std::async(std::launch::async, [&] {
      return RunProgram(TESSARA_NATIVE_AVI, {frames.Path(), output, "-FR", "20"}, temp_.Path());
    });
    EXPECT_TRUE(AnswerDialog(button));
    EXPECT_EQ(run.get().exitStatus, button == IDOK ? 0 : 1);
    EXPECT_THAT(frames.Names(), IsEmpty());
    // The dialog's first choice is no compression.
    std::string content;
    for (const AviStream& stream : ReadAvi(output)) {
      EXPECT_EQ(stream.header.substr(20, 4), LittleEndian(50, 4));
      content += stream.content;
    }
    EXPECT_EQ(content, button == IDOK ? Pixels(32, 1) + Pixels(32, 2) : "");
    const auto log = LogMessages(temp_.Read("TessaraMovieConsole_Log.txt"));
    EXPECT_THAT(log, Contains(tag + "done").Times(button == IDOK ? 1 : 2));
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.back(), tag + "End");
  }
}

}  // namespace

#include <gmock/gmock.h>
#include <windows.h>

#include <future>
#include <string>
#include <vector>

#include "log/diagnostic_log.h"
#include "tests/support/image_files.h"
#include "tests/support/program_fixture.h"

namespace {

using namespace testing;
using Texts = std::vector<std::string>;

// Notes what a box shows: its texts and the captions of its buttons, and "icon" for an icon.
BOOL CALLBACK NoteChild(HWND child, LPARAM seen) {
  char text[512] = "icon";
  if ((GetWindowLongA(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON) {
    GetWindowTextA(child, &text[0], sizeof(text));
  }
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the form in which the system passes it on.
  reinterpret_cast<Texts*>(seen)->emplace_back(&text[0]);
  return TRUE;
}

// Waits for a box with `caption`, reads it and presses `button`. Notes "owner" when it has one.
Texts ReadAndAnswer(const char* caption, WORD button) {
  Texts seen;
  for (int attempt = 0; attempt < 600 && seen.empty(); ++attempt) {
    Sleep(50);
    auto* const box = FindWindowA("#32770", caption);
    if (IsWindowVisible(box) != 0) {
      EnumChildWindows(box, NoteChild, reinterpret_cast<LPARAM>(&seen));
      seen.resize(seen.size() + (GetWindow(box, GW_OWNER) == nullptr ? 0 : 1), "owner");
      PostMessageA(box, WM_COMMAND, button, 0);
    }
  }
  return seen;
}

class BoxesTest : public ProgramFixture {};

TEST_F(BoxesTest, RunWaitsForTheBoxToBeClosed) {
  auto run = std::async(std::launch::async, [this] {
    return Run({frames_.Path(), "out.gif"}).output;
  });
  EXPECT_EQ(run.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout);
  EXPECT_THAT(ReadAndAnswer("Tessara", IDOK),
              UnorderedElementsAre("icon", "Input folder doesn't have image files!!!", "OK"));
  EXPECT_EQ(run.get(), "\n\nFailed to create AVI\n\n");
}

TEST_F(BoxesTest, LogShowsItsBoxAfterTheLineIsWritten) {
  auto run = std::async(std::launch::async, [] { WriteLog("a message", true); });
  EXPECT_THAT(ReadAndAnswer("Orbitane", IDOK), UnorderedElementsAre("icon", "a message", "OK"));
  run.get();
  EXPECT_THAT(LogFixture::Log(), ElementsAre("a message"));
}

TEST_F(BoxesTest, CompressionDialogWritesTheFramesOrNone) {
  for (const WORD button : {WORD{IDOK}, WORD{IDCANCEL}}) {
    frames_.Write("f1.bmp", BitmapFile(8, Pixels(32, 1)));
    frames_.Write("f2.bmp", BitmapFile(8, Pixels(32, 2)));
    auto run = std::async(std::launch::async, [this] {
      return RunProgram(TESSARA_NATIVE_AVI, {frames_.Path(), output_ / "out.avi", "-FR", "20"},
                        output_.Path());
    });
    EXPECT_THAT(ReadAndAnswer("Video Compression", button), Not(IsEmpty()));
    EXPECT_EQ(run.get().exitStatus, button == IDOK ? 0 : 1);
    EXPECT_THAT(frames_.Names(), IsEmpty());
    // The dialog's first choice is no compression.
    std::string content;
    for (const AviStream& stream : ReadAvi(output_ / "out.avi")) {
      EXPECT_EQ(stream.header.substr(20, 4), LittleEndian(50, 4));
      content += stream.content;
    }
    EXPECT_EQ(content, button == IDOK ? Pixels(32, 1) + Pixels(32, 2) : "");
  }
  EXPECT_THAT(Log("TessaraAnimationConsole::k3dAviCreator::CreateAVI_MS:"),
              ElementsAre("Start", "done", "End", "Start", "done", "End"));
}

}  // namespace

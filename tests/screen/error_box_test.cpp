#include <gmock/gmock.h>
#include <windows.h>

#include <future>
#include <string>
#include <vector>

#include "log/diagnostic_log.h"
#include "tests/support/program_fixture.h"

namespace {

using testing::UnorderedElementsAre;

// Notes what a box shows: its texts and the captions of its buttons, and "icon" for an icon.
BOOL CALLBACK NoteChild(HWND child, LPARAM seen) {
  const bool isIcon = (GetWindowLongA(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
  char text[512] = "icon";
  if (!isIcon) {
    GetWindowTextA(child, &text[0], sizeof(text));
  }
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the form in which the system passes it on.
  reinterpret_cast<std::vector<std::string>*>(seen)->emplace_back(&text[0]);
  return TRUE;
}

// Waits for a box without an owner and with `caption`, reads it and closes it with its OK button.
std::vector<std::string> ReadAndCloseBox(const std::string& caption) {
  std::vector<std::string> seen;
  for (int attempt = 0; attempt < 400 && seen.empty(); ++attempt) {
    Sleep(50);
    auto* const box = FindWindowA("#32770", caption.c_str());
    if (box != nullptr && IsWindowVisible(box) != 0 && GetWindow(box, GW_OWNER) == nullptr) {
      EnumChildWindows(box, NoteChild, reinterpret_cast<LPARAM>(&seen));
      PostMessageA(box, WM_COMMAND, IDOK, 0);
    }
  }
  return seen;
}

class ErrorBoxTest : public ProgramFixture {};

TEST_F(ErrorBoxTest, RunWaitsForTheBoxToBeClosed) {
  auto run = std::async(std::launch::async, [this] {
    return Run({frames_.Path(), "out.gif"}).output;
  });
  EXPECT_EQ(run.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout);
  EXPECT_THAT(ReadAndCloseBox("Tessara"),
              UnorderedElementsAre("icon", "Input folder doesn't have image files!!!", "OK"));
  EXPECT_EQ(run.get(), "\n\nFailed to create AVI\n\n");
}

TEST_F(ErrorBoxTest, LogShowsItsBoxAfterTheLineIsWritten) {
  InitLog(temp_ / "log.txt", true);
  auto run = std::async(std::launch::async, [] { WriteLog("a message", true); });
  EXPECT_THAT(ReadAndCloseBox("Orbitane"), UnorderedElementsAre("icon", "a message", "OK"));
  run.get();
  EXPECT_THAT(LogMessages(temp_.Read("log.txt")), testing::ElementsAre("a message"));
}

}  // namespace

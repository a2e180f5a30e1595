#include <gmock/gmock.h>
#include <windows.h>

#include <future>
#include <string>
#include <vector>

#include "log/diagnostic_log.h"
#include "tests/support/program_fixture.h"

namespace {

struct SeenBox {
  std::string text;
  std::vector<std::string> buttons;
  bool hasOwner = true;
  bool hasIcon = false;
};

BOOL CALLBACK NoteChild(HWND child, LPARAM seen) {
  SeenBox& box = *reinterpret_cast<SeenBox*>(seen);
  char className[64] = {};
  char text[512] = {};
  GetClassNameA(child, &className[0], sizeof(className));
  GetWindowTextA(child, &text[0], sizeof(text));
  if (std::string(&className[0]) == "Button") {
    box.buttons.emplace_back(&text[0]);
  } else if ((GetWindowLongA(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON) {
    box.hasIcon = true;
  } else {
    box.text += &text[0];
  }
  return TRUE;
}

// Waits for a box with `caption`, reads it and closes it with its OK button.
SeenBox ReadAndCloseBox(const std::string& caption) {
  SeenBox seen;
  for (int attempt = 0; attempt < 400; ++attempt) {
    auto* const box = FindWindowA("#32770", caption.c_str());
    if (box != nullptr && IsWindowVisible(box) != 0) {
      EnumChildWindows(box, NoteChild, reinterpret_cast<LPARAM>(&seen));
      seen.hasOwner = GetWindow(box, GW_OWNER) != nullptr;
      PostMessageA(box, WM_COMMAND, IDOK, 0);
      while (IsWindow(box) != 0) {
        Sleep(10);
      }
      return seen;
    }
    Sleep(50);
  }
  ADD_FAILURE() << "no box " << caption;
  return seen;
}

void ExpectBox(const SeenBox& seen, const std::string& text) {
  EXPECT_EQ(seen.text, text);
  EXPECT_THAT(seen.buttons, testing::ElementsAre("OK"));
  EXPECT_FALSE(seen.hasOwner);
  EXPECT_TRUE(seen.hasIcon);
}

class ErrorBoxTest : public ProgramFixture {};

TEST_F(ErrorBoxTest, RunWaitsForTheBoxToBeClosed) {
  auto run = std::async(std::launch::async, [this] {
    return Run({frames_.Path(), "out.gif"}).output;
  });
  EXPECT_EQ(run.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout);
  ExpectBox(ReadAndCloseBox("Tessara"), "Input folder doesn't have image files!!!");
  EXPECT_EQ(run.get(), "\n\nFailed to create AVI\n\n");
}

TEST_F(ErrorBoxTest, LogShowsItsBoxAfterTheLineIsWritten) {
  InitLog(temp_ / "log.txt", true);
  auto run = std::async(std::launch::async, [] { WriteLog("a message", true); });
  ExpectBox(ReadAndCloseBox("Orbitane"), "a message");
  run.get();
  EXPECT_THAT(LogMessages(temp_.Read("log.txt")), testing::ElementsAre("a message"));
}

}  // namespace

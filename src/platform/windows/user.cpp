#include "platform/user.h"

#include <windows.h>
// shellapi.h builds on windows.h.
#include <shellapi.h>

#include <atomic>
#include <cstdio>

#include "platform/owned.h"
#include "platform/windows/utf8.h"

namespace platform {
namespace {

std::atomic<bool> interrupted = false;

BOOL WINAPI Note(DWORD event) {
  interrupted = true;
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) {
    // After a closed console the system ends the process when this returns; so it does not, and
    // leaves the time that the system grants to the clearing up.
    Sleep(INFINITE);
  }
  return TRUE;
}

}  // namespace

std::vector<std::string> ProgramArguments(int, char**) {
  int count = 0;
  const Owned<wchar_t**, LocalFree> words(CommandLineToArgvW(GetCommandLineW(), &count));
  std::vector<std::string> arguments;
  for (int index = 1; index < count; ++index) {
    arguments.push_back(Utf8FromWide(words.get()[index]));
  }
  return arguments;
}

void FillStandardStreams() {
  // Files are no numbers here that could be taken for a stream's.
}

bool ErrorsGoToTerminal() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

int TerminalWidth() {
  constexpr int kUsualWidth = 80;
  CONSOLE_SCREEN_BUFFER_INFO screen = {};
  return GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &screen) != 0
             ? screen.srWindow.Right - screen.srWindow.Left + 1
             : kUsualWidth;
}

void UseUtf8Console() {
  SetConsoleOutputCP(CP_UTF8);
}

bool HasReaderGone() {
  // The C library has no number of its own for it.
  const DWORD error = GetLastError();
  return error == ERROR_NO_DATA || error == ERROR_BROKEN_PIPE || error == ERROR_PIPE_NOT_CONNECTED;
}

void WaitBeforeConsoleGoes() {
  DWORD process = 0;
  if (GetConsoleProcessList(&process, 1) != 1 || !ErrorsGoToTerminal()) {
    return;
  }
  std::fputs("Press a key to close this window.\n", stderr);
  HANDLE keyboard = GetStdHandle(STD_INPUT_HANDLE);
  FlushConsoleInputBuffer(keyboard);
  INPUT_RECORD record = {};
  DWORD count = 0;
  while (ReadConsoleInputW(keyboard, &record, 1, &count) != 0 &&
         !(record.EventType == KEY_EVENT && record.Event.KeyEvent.bKeyDown != 0)) {
  }
}

void NoteInterruptions() {
  SetConsoleCtrlHandler(Note, TRUE);
}

bool IsInterrupted() {
  return interrupted;
}

std::string InterruptionCause() {
  return {};
}

}  // namespace platform

#include "platform/user.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "platform/linux/descriptor.h"

namespace platform {
namespace {

// The signal that was noted, 0 for none.
volatile std::sig_atomic_t interruption = 0;

void Note(int signal) {
  interruption = signal;
}

}  // namespace

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void FillStandardStreams() {
  // The system gives the lowest number that is free.
  int number = -1;
  do {
    number = open("/dev/null", O_RDONLY);
  } while (number >= 0 && number <= STDERR_FILENO);
  const Descriptor notNeeded(number);
}

bool ErrorsGoToTerminal() {
  return isatty(STDERR_FILENO) != 0;
}

int TerminalWidth() {
  constexpr int kUsualWidth = 80;
  winsize size = {};
  return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col
                                                                         : kUsualWidth;
}

void UseUtf8Console() {}

bool HasReaderGone() {
  return errno == EPIPE;
}

void WaitBeforeConsoleGoes() {}

void NoteInterruptions() {
  struct sigaction action = {};
  action.sa_handler = Note;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU, SIGXFSZ}) {
    // One that the caller has turned off (nohup) stays so.
    struct sigaction before = {};
    if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN) {
      sigaction(signal, &action, nullptr);
    }
  }
  // A reader that has gone shows as a failed write.
  std::signal(SIGPIPE, SIG_IGN);
}

bool IsInterrupted() {
  return interruption != 0;
}

std::string InterruptionCause() {
  return interruption == 0 || interruption == SIGINT ? "" : strsignal(interruption);
}

}  // namespace platform

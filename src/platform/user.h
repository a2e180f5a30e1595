// Who started the program, and from where: its arguments, the terminal, and the wish to stop.
#pragma once

#include <string>
#include <vector>

namespace platform {

// The arguments without the program's own name, in UTF-8 on Windows whatever the code page,
// elsewhere as their bytes.
std::vector<std::string> ProgramArguments(int argc, char** argv);

// Puts the null device in the place of standard input, output and error where the program was
// started without them, so that no file of its own gets there; writing to it fails.
void FillStandardStreams();

// Whether standard error is a terminal in which a line can be rewritten, and how many characters
// wide that is.
bool ErrorsGoToTerminal();
int TerminalWidth();

// Makes texts in UTF-8 readable in the console, where that has a code page of its own.
void UseUtf8Console();

// Waits for a key when the console was opened for this program alone and will go with it, so that
// its last words can be read.
void WaitBeforeConsoleGoes();

// Whether a write to standard output, which just failed, did so because nobody reads it any more.
bool HasReaderGone();

// From now on the user's wish to stop (Ctrl-C, a closed console, a request to end) and the limits
// that he has set on time and the size of files no longer end the process but are noted.
void NoteInterruptions();

// Whether such a wish was noted, and the system's word for what it was; empty for Ctrl-C, and where
// the system has none.
bool IsInterrupted();
std::string InterruptionCause();

}  // namespace platform

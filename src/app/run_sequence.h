// One run of the program from start to exit.
#pragma once

// Fixes the temp root, starts the log, runs the movie creation driver, sweeps the temp root and
// reports success. Returns the exit status: 0, whether or not an animation was made; 1 only when
// the framework cannot be started.
int RunConsole(int argc, char** argv, char** envp);

// The command line: usage texts, and the reader that fills the run settings.
#pragma once

// Print how the program is called: in general, for a GIF, for a movie.
void PrintGeneralUsage();
void PrintGifUsage();
void PrintMovieUsage();

// Fills the movie creator's settings and the own-images flag from "InputFolder OutputFile" and the
// options behind them. An option word is recognised wherever it stands in an argument, its value
// is the next argument, the last one wins; an option without a value changes nothing, unknown
// words are ignored and values are not checked. Returns true always.
bool ParseCommandLineForAVI(int argc, char** argv);

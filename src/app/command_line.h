// The command line: usage texts, and the readers that fill the run settings.
#pragma once

// Print how the program is called: in general, for a GIF, for a movie.
void PrintGeneralUsage();
void PrintGifUsage();
void PrintMovieUsage();

// Fills the movie creator's settings and the own-images flag from "InputFolder OutputFile" and the
// options after them. An option word is recognised wherever it stands in an argument, its value
// is the next argument, the last one wins; an option without a value changes nothing, unknown
// words are ignored and values are not checked. Returns true always.
bool ParseCommandLineForAVI(int argc, char** argv);

// Fills the GIF creator's settings and the own-images flag in the same way. The frame rate is its
// one option; a rate above 30 becomes 16. Returns true always. For callers of the GIF creator; the
// console program makes a GIF as it makes a movie.
bool ParseCommandLineForGIF(int argc, char** argv);

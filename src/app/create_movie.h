// The movie creation driver.
#pragma once

// Does what the command line asks for: prints a usage text, or makes an animation of the frames in
// the first argument's folder as the file that the second one names. The environment is not used.
// Returns true when the animation was handed to the converter, and also, with nothing done, when
// there is one argument that is no help switch; false in every other case, after a message.
bool CreateMovie(int argc, char** argv, char** envp);

#pragma once

namespace veldraw::app {

/// The whole program: reads the command line, then either runs a batch and ends, or opens the window and runs until it closes.
/// Chooses Qt's platform first: a batch needs no display unless it makes a picture, and a picture is made on a virtual one
/// where there is none.
/// @return exit status: 0 fine, 1 something failed (told on standard error), 2 the command line is wrong
int runProgram(int argc, char** argv);

} // namespace veldraw::app

#pragma once

namespace veldraw::app {

/// Which values an import loads at once; the others are loaded when somebody asks for them.
enum class Deferral
{
    Auto,   ///< all where they take little of the free memory, else those that the first plot needs; mapped ones always
    Always, ///< none that the reader can bring later
    Never   ///< all; a file that does not fit into memory is refused
};

} // namespace veldraw::app

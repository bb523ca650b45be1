#pragma once

#include <random>
#include <string>
#include <vector>

namespace veldraw::tests {

/// A sound file, and others that it needs beside it.
struct SoundFile
{
    std::string name;
    std::string content;
    std::vector<std::pair<std::string, std::string>> others; ///< name and content of each
};

/// Small files of all formats that can be read, in all of their encodings.
std::vector<SoundFile> soundFiles();

/// The file with one to four damages: bytes that are others, missing or there twice, numbers, names, types and attributes exchanged, tags within tags without
/// end, tags of other names or of enormous length, comments in which values seem to start, letters written as numbers.
std::string mutated(std::string text, std::mt19937& random);

/// The n-th mutation of sound files. The same for the same numbers. @return content of the file
std::string mutation(SoundFile const& file, unsigned int seed, unsigned int number);

/// What came of a file.
struct Opening
{
    bool isRefused = false;
    std::string problem; ///< what is wrong with what came in, or with the refusal; empty where all is as it should be
};

/// Opens a file and looks at all of its values, at once or later, and whether they depend on what memory was full of before.
Opening openedAndLookedAt(std::string const& path);

} // namespace veldraw::tests

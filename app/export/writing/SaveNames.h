#pragma once

#include <cstddef>
#include <string>

namespace veldraw::app {

// Names of the files that a save makes besides its target, and how they are told from those of the user.

/// The name with another ending, short enough for a file system whatever the name is. @param ending begins with a dot
std::string nameWithEnding(std::string const& name, std::string const& ending);

/// A name for what is to take the place of a target. @param tag a text that is in no other save's names, see newTag()
std::string partName(std::string const& target, std::string const& tag);
std::string newTag();

/// Whether partName() may have made a name for this target.
bool isPartName(std::string const& name, std::string const& target);

/// A name for a piece of a file: "a_1.vts", or "a_1-2.vts" in the second round. @param stem name of the file without extension
std::string nameOfPiece(std::string const& stem, std::size_t number, int round, std::string const& extension);

/// Whether nameOfPiece() may have made a name.
bool isPieceName(std::string const& name, std::string const& stem);

} // namespace veldraw::app

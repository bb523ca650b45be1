#pragma once

#include <string>

namespace veldraw::tests {

/// Writes an Exodus II file by VTK: a block "bricks" of n - 1 hexahedra in a row and a block "tets" of n - 1 tetrahedra, ten to the right of it; n is
/// @p points. The nodes are at (i, j, k) for i below n, j and k 0 or 1. At the moment m, of which there are @p moments with the times 0, 0.5 and so on,
/// a node has temp = 100 b + i + 10 j + 20 k + m and vel = (x, 2 y, 3 z + m), cell c the quality c - m; b is 0 or 1 for the block.
void writeExodus(std::string const& path, int moments, int points);

/// Adds a set of two nodes with the number 7 and a variable "energy" of the whole to such a file.
void addNodeSetAndGlobal(std::string const& path);

/// Overwrites the third node of the second brick. @param node one-based
void setNodeOfCell(std::string const& path, int node);

} // namespace veldraw::tests

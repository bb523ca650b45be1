#pragma once

namespace veldraw::sdk::ui::propertymanager {

/// Puts a frame over the quarter of another one that begins at the middle of its upper edge, and leaves it active.
/// @param sourceFrame, resultsFrame unique identifiers
void placeFrameInCorner(long long sourceFrame, long long resultsFrame);

/// Tiles all frames over the paper, row by row in their present order. Two frames are stacked. The number of columns follows the
/// shape of the paper, and the rows are not corrected when the frames do not fill them: places may stay empty, and frames may
/// run past the bottom. The active frame stays active.
void tileFrames();

} // namespace veldraw::sdk::ui::propertymanager

#pragma once

#include "app/files/FileStamp.h"
#include "app/import/raw/RawType.h"
#include "kernel/base/Progress.h"
#include "kernel/storage/ShareGroup.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace veldraw::app {

/// An array of a file whose values are not read with the grid, but when they are wanted.
struct DeferredArray
{
    /// Makes the loader of one component, from 0, of so many tuples.
    using LoaderFactory = std::function<std::shared_ptr<kernel::ValueLoader>(int component, std::int64_t tuples)>;

    /// Brings values into the order that a zone wants them in.
    using Arrangement = std::function<std::shared_ptr<kernel::Buffer>(kernel::Buffer const&)>;

    int position = 0; ///< among the arrays of its section that can be read, from 0
    std::string name;
    RawType type = RawType::Float32;
    int components = 1;
    std::vector<std::string> componentNames; ///< empty where they have none
    std::vector<std::string> purposes;       ///< for which the file names the array
    bool isLoadedAtOnce = false; ///< when the zone is made: it takes no time, or is wanted and must be read alone
    LoaderFactory makeLoader;

    /// The storage of a field for one component; its values are mapped at once or left to a loader.
    /// @param component from 0
    /// @param tuples    values that the file has of it
    /// @param size      values that the field is to have
    /// @param arrange   makes the ones of the others; empty where they are the same
    /// @param progress  whose interrupt ends the loading of values at once
    /// @throws ImportError, kernel::Interrupted
    std::shared_ptr<kernel::ShareGroup> group(int component, std::int64_t tuples, std::int64_t size,
                                              Arrangement const& arrange, kernel::Progress& progress) const;
};

/// The cells of a mesh that are not read with the grid, but when the zone's dimensions are wanted. All of them are taken over as
/// they are.
struct DeferredCells
{
    FileStamp file;
    std::int64_t points = 0; ///< of the mesh
    std::int64_t count = 0;
    std::vector<unsigned char> kinds; ///< VTK cell types, each once
};

/// Those of one grid.
struct DeferredArrays
{
    std::vector<DeferredArray> ofPoints; ///< by position
    std::vector<DeferredArray> ofCells;  ///< by position
    std::vector<std::string> remarks;    ///< on arrays that cannot be read
    bool coordinates = false;            ///< those of grids that store no points are computed later

    /// Coordinates of a grid that stores them; it says nothing of its points then.
    std::optional<DeferredArray> points;
    std::int64_t pointCount = 0; ///< of such a grid

    /// Those of a mesh; it says nothing of its cells then.
    std::optional<DeferredCells> cells;
};

} // namespace veldraw::app

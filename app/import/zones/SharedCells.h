#pragma once

#include "kernel/data/Zone.h"

#include <memory>

namespace veldraw::app {

/// Has zones that are one thing at several moments share their cells where these are equal: however many moments there are, the cells are
/// there once, and so are the shapes that plots make of them.
///
///     SharedCells strand;
///     for (kernel::Zone& moment : zones)
///         strand.join(moment);
class SharedCells
{
public:
    SharedCells();
    ~SharedCells();

    /// Compares the cells of a zone with those of the last one that had any; cells that are left in a file when they are loaded.
    /// @throws std::bad_alloc
    void join(kernel::Zone& zone);

    SharedCells(SharedCells const&) = delete;
    SharedCells& operator=(SharedCells const&) = delete;

private:
    class Last;
    class Loader;

    std::shared_ptr<Last> m_last;
};

} // namespace veldraw::app

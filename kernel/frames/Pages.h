#pragma once

#include "kernel/frames/Frame.h"
#include "kernel/frames/Layout.h"
#include "kernel/frames/Page.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace veldraw::kernel {

/// A loop over frames: the frames, and the zero-based position of the present one. Empty when there is no loop.
struct FrameLoop
{
    std::vector<std::weak_ptr<Frame>> frames;
    std::size_t position = 0;
};

/// The pages of a session with their frames: the active page, its active frame, and a loop over its frames.
///
/// Pages and frames are shared objects, so an operation can hold those that it changes. This class sends no events; the
/// session and the steps of its history do.
class Pages
{
public:
    /// Starts with one empty page. @throws std::bad_alloc
    Pages();

    std::vector<std::shared_ptr<Page>> const& all() const { return m_pages; }

    std::shared_ptr<Layout> const& layout() const { return m_layout; } ///< never null, also when there is no page

    std::shared_ptr<Page> activePage() const;        ///< null when there is no page
    std::shared_ptr<Frame> activeFrame() const;      ///< during a loop its present frame; null when there is no frame
    std::shared_ptr<DataSet> activeDataSet() const;  ///< data set of the active frame, null when there is none
    std::shared_ptr<Frame> frame(UniqueId id) const; ///< null when there is none
    std::shared_ptr<Page> pageOf(UniqueId frame) const;  ///< null when no page has the frame
    std::shared_ptr<DataSet> dataSet(UniqueId id) const; ///< null when no frame shows it

    /// Frames that show @p dataSet.
    std::vector<std::shared_ptr<Frame>> framesOf(DataSet const& dataSet) const;

    /// The data sets that frames show, each once.
    std::vector<std::shared_ptr<DataSet>> dataSets() const;

    /// Replaces all pages by those of a new layout, makes the first of them active, and ends the loop.
    /// @throws std::bad_alloc before anything has changed
    void replace(std::vector<std::shared_ptr<Page>> pages);

    /// Makes a frame of @p page active, and the page with it. @return false when both are that already
    bool activate(Page& page, UniqueId frame) noexcept;

    // ---- loop over the frames of the active page -------------------------------------------------------------------
    /// Starts a loop at the first frame. The present frame of the loop counts as the active one until the loop ends.
    /// @return false, without a loop, when there is no frame. @throws std::bad_alloc
    bool startLoop();
    bool nextInLoop(); ///< @return false, with the present frame unchanged, when it is the last
    void endLoop() noexcept { m_loop = {}; }
    /// Replaces the present loop and returns it. An empty @p loop suspends the present one, which can be put back later.
    FrameLoop exchangeLoop(FrameLoop loop) noexcept;

private:
    std::shared_ptr<Layout> m_layout;
    std::vector<std::shared_ptr<Page>> m_pages;
    UniqueId m_activePage;
    FrameLoop m_loop;
};

} // namespace veldraw::kernel

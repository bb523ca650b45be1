#pragma once

#include "kernel/frames/Frame.h"
#include "kernel/frames/Page.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace veldraw::kernel {

/// A walk over frames: which ones, and on which of them it stands. Empty: nobody walks.
struct FrameLoop
{
    std::vector<std::weak_ptr<Frame>> frames;
    std::size_t position = 0;
};

/// The pages of a session with their frames: who is where, which page and frame are active, and a walk over the frames.
///
/// Pages and frames are shared objects: an operation holds those that it is about. Changes of the lists tell nobody here; the
/// session and the steps of its history do.
class Pages
{
public:
    /// Starts with one empty page. @throws std::bad_alloc
    Pages();

    std::vector<std::shared_ptr<Page>> const& all() const { return m_pages; }

    std::shared_ptr<Page> activePage() const;   ///< null when there is no page
    std::shared_ptr<Frame> activeFrame() const; ///< where the walk stands, if there is one; null when there is no frame
    std::shared_ptr<DataSet> activeDataSet() const;      ///< data set of the active frame, null when there is none
    std::shared_ptr<Frame> frame(UniqueId id) const;     ///< null when there is none
    std::shared_ptr<Page> pageOf(UniqueId frame) const;  ///< null when no page has the frame
    std::shared_ptr<DataSet> dataSet(UniqueId id) const; ///< null when no frame shows it

    /// Frames that show @p dataSet.
    std::vector<std::shared_ptr<Frame>> framesOf(DataSet const& dataSet) const;

    /// The data sets that frames show, each once.
    std::vector<std::shared_ptr<DataSet>> dataSets() const;

    /// Puts other pages in the place of all, the first of them active; ends the walk.
    void replace(std::vector<std::shared_ptr<Page>> pages) noexcept;

    /// Makes a frame of @p page active, and the page with it. @return false when both are that already
    bool activate(Page& page, UniqueId frame) noexcept;

    // ---- walk over the frames of the active page -------------------------------------------------------------------
    /// Stands on the first frame, which counts as the active one until the walk goes on or ends.
    /// @return false, with no walk, when there is no frame. @throws std::bad_alloc
    bool startLoop();
    bool nextInLoop(); ///< @return false, standing where it stood, when there is no further frame
    void endLoop() noexcept { m_loop = {}; }
    /// Puts another walk in the place of the present one, which it returns: an empty one sets the present one aside.
    FrameLoop exchangeLoop(FrameLoop loop) noexcept;

private:
    std::vector<std::shared_ptr<Page>> m_pages;
    UniqueId m_activePage;
    FrameLoop m_loop;
};

} // namespace veldraw::kernel

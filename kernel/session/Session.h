#pragma once

#include "kernel/events/EventHub.h"
#include "kernel/frames/Display.h"
#include "kernel/frames/Pages.h"
#include "kernel/operations/Operation.h"
#include "kernel/session/LongWork.h"
#include "kernel/undo/History.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::kernel {

class StyleTree;

/// The one kernel of the process: pages, their frames, the data sets in them, events and history.
///
/// Data and pages are changed by operations (see Operation), each given to perform(): it is checked first, then carried out
/// whole or not at all, told to the listeners, and can be undone under the name that the user saw. An operation that is refused
/// changes nothing, sends nothing and leaves its reason in lastError(). What is not undoable (which page there is, which
/// frame is active, the state of the work area) is done by members of this class, which are refused in the same way. All
/// calls belong to the user-interface thread. While an operation waits for its computation, every other one is refused.
class Session final : public OperationPerformer
{
public:
    /// The kernel behind the C functions.
    static Session& instance();

    /// Starts with an empty page.
    Session();
    ~Session() override;

    EventHub& events() { return m_events; }
    History& history() { return m_history; }
    History const& history() const { return m_history; }
    StyleTree& style() { return *m_style; }

    // ---- operations ------------------------------------------------------------------------------------------------
    /// Carries out an operation. Refused while another one computes.
    using OperationPerformer::perform;
    bool perform(Operation& operation) noexcept override;

    /// Takes the newest step back. The step's own events, then event 24. @return false when there is none
    bool undo();
    bool redo();

    /// Why the last refused operation was refused, in words for the message log.
    std::string const& lastError() const override { return m_lastError; }
    void setLastError(std::string error) { m_lastError = std::move(error); }

    /// Notes why something is refused; always false.
    bool refuse(char const* reason) noexcept;
    bool refuse(std::string reason) noexcept;

    /// Who hears what an operation that has succeeded did not do, in words for the message log; nobody at first.
    void setRemarkListener(std::function<void(std::string const&)> listener) { m_remarkListener = std::move(listener); }

    // ---- pages and frames ------------------------------------------------------------------------------------------
    Pages const& pages() const { return m_pages; }
    std::shared_ptr<Page> activePage() const { return m_pages.activePage(); }          ///< null when there is no page
    std::shared_ptr<Frame> activeFrame() const { return m_pages.activeFrame(); }       ///< null when there is no frame
    std::shared_ptr<DataSet> activeDataSet() const { return m_pages.activeDataSet(); } ///< of the active frame, or null
    std::shared_ptr<Frame> frame(UniqueId id) const { return m_pages.frame(id); }      ///< null when there is none
    std::shared_ptr<DataSet> dataSet(UniqueId id) const { return m_pages.dataSet(id); } ///< null when no frame shows it

    /// Throws all pages away and starts with an empty page; the history is forgotten. Events 16, 10.
    void clear();

    /// Throws even the page away (nothing left at all). Events 16.
    void removeAllPages();

    /// Puts @p frames on one fresh page, side by side in a grid, the first active; the history is forgotten. Events
    /// 16, 10.
    void openPage(std::vector<std::shared_ptr<Frame>> frames);

    /// Adds a new frame without data (see AddFrame). @return null when it is refused
    std::shared_ptr<Frame> createFrame(std::string const& name, Rectangle const& rectangle);

    /// Not undoable. Event 10 when another frame becomes active.
    bool activateFrame(UniqueId frame);

    void tileFrames(); ///< grid over the page; not undoable; event 11

    /// Gives the frame a data set, default axes, contour variable, plot type and line maps. Not undoable. Event 12.
    bool setFrameDataSet(UniqueId frame, std::shared_ptr<DataSet> dataSet);

    void setLock(DataSet& dataSet, std::string const& holder); ///< empty holder = unlock; event 14

    /// A walk over the frames of the active page (see Pages). Nothing is sent.
    bool startFrameLoop();
    bool nextFrameInLoop() { return m_pages.nextInLoop(); }
    void endFrameLoop() { m_pages.endLoop(); }
    FrameLoop exchangeFrameLoop(FrameLoop loop) { return m_pages.exchangeLoop(std::move(loop)); }

    // ---- values on demand ------------------------------------------------------------------------------------------
    /// Bytes that loaded values may take that can be loaded again; half of the machine's memory at first. To set it lets go at
    /// once of what is above it.
    ///
    /// Values are let go of only when memory asks for it: those loaded take more than the limit, or memory is refused to a load
    /// or to an operation. Those that have not been used for the longest time go first; those never that have been
    /// altered or cannot be loaded again, that are wanted in some zone, or whose variable a frame shows. What has made room
    /// for a load that fails after all does not come back.
    std::int64_t loadedValuesLimit() const { return m_loadedValuesLimit; }
    void setLoadedValuesLimit(std::int64_t bytes);

    // ---- long work -------------------------------------------------------------------------------------------------
    bool isBusy() const { return m_work.isBusy(); } ///< every operation is refused then
    bool isInterrupted() const { return m_work.isInterrupted(); }
    void setInterrupted(bool interrupted) { m_work.setInterrupted(interrupted); }
    void setWaiter(Waiter* waiter) { m_work.setWaiter(waiter); }

    /// Runs work that changes nothing in the session, such as saving (see LongWork). What the work reads in the session stays as it
    /// is meanwhile: operations are refused, style writes are carried out afterwards.
    /// @throws what the work throws, Interrupted when the user has cancelled; std::logic_error while another one runs
    void runOperation(std::string const& name, std::function<void(Progress&)> const& work);

    // ---- what the user does in the work area -----------------------------------------------------------------------
    std::vector<Pick> const& picks() const { return m_picks; }
    void setPicks(std::vector<Pick> picks); ///< event 25

    int mouseMode() const { return m_mouseMode; }
    static bool isMouseMode(int mode);
    bool setMouseMode(int mode); ///< event 26 when it is another mode; false for a number that is no mode

    // ---- the screen ------------------------------------------------------------------------------------------------
    /// What draws the pages; null (as at first) when nothing does. Not owned: to be taken back before it goes.
    void setDisplay(Display* display) { m_display = display; }
    Display* display() const { return m_display; }

    /// Suspends drawing, or resumes it and draws what has changed.
    void setDrawing(bool on);
    bool isDrawing() const { return m_isDrawing; }

    /// Fits the active frame's view to its data. @return false when there is no frame or no data set
    bool fitData();

    /// Brings all frames of the page into view. @return false when there is no page
    bool fitAllFrames();

    /// Tells the listeners that the process ends. Event 15; nothing follows it.
    void goDown();

private:
    template <typename Work>
    bool withoutThrowing(Work const& work) noexcept;
    template <typename Work>
    bool guarded(Work const& work) noexcept;
    std::string reasonAgainst(Operation& operation) const;
    void performLong(Operation& operation);
    void addStep(Operation const& operation, std::shared_ptr<Change> const& change);
    void remark(std::string const& text) noexcept;
    void replacePages(std::vector<std::shared_ptr<Page>> pages);

    EventHub m_events;
    History m_history;
    Pages m_pages;
    LongWork m_work;
    std::int64_t m_loadedValuesLimit;
    std::vector<Pick> m_picks;
    int m_mouseMode;
    Display* m_display = nullptr;
    bool m_isDrawing = true;
    std::string m_lastError;
    std::function<void(std::string const&)> m_remarkListener;
    std::unique_ptr<StyleTree> m_style;
};

} // namespace veldraw::kernel

#pragma once

#include "kernel/events/EventHub.h"
#include "kernel/frames/Display.h"
#include "kernel/frames/Pages.h"
#include "kernel/operations/Operation.h"
#include "kernel/session/FetchAhead.h"
#include "kernel/session/Journal.h"
#include "kernel/session/LoadedValues.h"
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
/// Data and pages are changed by operations (see Operation):
///
///     if (!session.perform(RenameZone(*dataSet, 1, "Wing"))) {
///         show(session.lastError());
///     }
///
/// An operation is checked first, then carried out as a whole or not at all. It sends its events and becomes a step of the
/// history. An operation that is refused changes nothing, sends nothing and leaves its reason in lastError(). Members of
/// this class do what cannot be undone: those for pages and frames are refused in the same way. What the user does in the
/// work area and what the screen does goes on while an operation computes, since it touches no data.
///
/// Call the session on the user-interface thread only. While an operation computes, every other one is refused.
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

    /// What stays loaded of values on demand; at most half of the machine's memory at first.
    LoadedValues& loadedValues() { return m_loadedValues; }
    LoadedValues const& loadedValues() const { return m_loadedValues; }

    /// What has been done, as commands.
    Journal& journal() { return m_journal; }
    Journal const& journal() const { return m_journal; }

    // ---- operations ------------------------------------------------------------------------------------------------
    /// Carries out an operation. Refused while another one computes.
    using OperationPerformer::perform;
    bool perform(Operation& operation) noexcept override;

    /// Undoes the newest step. Sends the events of the step, then event 24. @return false when there is no step
    bool undo();
    bool redo();

    /// Why the last refused operation was refused, in words for the message log.
    std::string const& lastError() const override { return m_lastError; }
    void setLastError(std::string error) { m_lastError = std::move(error); }

    /// Stores the reason of a refusal for lastError(). @return false
    bool refuse(char const* reason) noexcept;
    bool refuse(std::string reason) noexcept;

    /// Sets the function that is called with the remark of an operation (see Operation::remark()); none at first.
    void setRemarkListener(std::function<void(std::string const&)> listener) { m_remarkListener = std::move(listener); }

    // ---- pages and frames ------------------------------------------------------------------------------------------
    Pages const& pages() const { return m_pages; }
    std::shared_ptr<Page> activePage() const { return m_pages.activePage(); }          ///< null when there is no page
    std::shared_ptr<Frame> activeFrame() const { return m_pages.activeFrame(); }       ///< null when there is no frame
    std::shared_ptr<DataSet> activeDataSet() const { return m_pages.activeDataSet(); } ///< of the active frame, or null
    std::shared_ptr<Frame> frame(UniqueId id) const { return m_pages.frame(id); }      ///< null when there is none
    std::shared_ptr<DataSet> dataSet(UniqueId id) const { return m_pages.dataSet(id); } ///< null when no frame shows it

    /// Replaces all pages by an empty one and clears the history. Events 16, 10. @return false when that is refused
    bool clear();

    /// Removes all pages and clears the history. Events 16, 10. For an application that starts without a page; ours always
    /// has one. @return as clear()
    bool removeAllPages();

    /// Replaces all pages by one with @p frames in a grid, the first of them active, and clears the history. Events 16, 10.
    /// @return as clear(); the frames are what they were then, too
    bool openPage(std::vector<std::shared_ptr<Frame>> frames);

    /// Adds a new frame without data (see AddFrame). @return null when that is refused
    std::shared_ptr<Frame> createFrame(std::string const& name, Rectangle const& rectangle);

    /// Not undoable. Event 10 when another frame becomes active.
    bool activateFrame(UniqueId frame);

    void tileFrames(); ///< grid over the page; not undoable; event 11

    /// Gives the frame a data set, default axes, contour variable, plot type and line maps. Not undoable. Event 12.
    bool setFrameDataSet(UniqueId frame, std::shared_ptr<DataSet> dataSet);

    void setLock(DataSet& dataSet, std::string const& holder); ///< empty holder = unlock; event 14

    /// A loop over the frames of the active page (see Pages). No events.
    bool startFrameLoop();
    bool nextFrameInLoop() { return m_pages.nextInLoop(); }
    void endFrameLoop() { m_pages.endLoop(); }
    FrameLoop exchangeFrameLoop(FrameLoop loop) { return m_pages.exchangeLoop(std::move(loop)); }

    // ---- long work -------------------------------------------------------------------------------------------------
    bool isBusy() const { return m_work.isBusy(); } ///< every operation is refused then
    bool isInterrupted() const { return m_work.isInterrupted(); }
    void setInterrupted(bool interrupted) { m_work.setInterrupted(interrupted); }
    void setWaiter(Waiter* waiter) { m_work.setWaiter(waiter); }

    /// Runs work that changes nothing in the session, such as saving (see LongWork). The session does not change while the
    /// work reads it: operations are refused, style writes are carried out afterwards.
    /// @throws what the work throws, Interrupted when the user has cancelled; std::logic_error while another one runs
    void runOperation(std::string const& name, std::function<void(Progress&)> const& work);

    /// Begins to bring, on a thread aside, what a frame needs to show a moment of its data set (see FetchAhead). The next operation that loads waits for it
    /// if it needs that, and ends it otherwise.
    void fetchAhead(UniqueId frame, double time) noexcept;
    void endFetchAhead() noexcept { m_fetchAhead.end(); }

    // ---- what the user does in the work area -----------------------------------------------------------------------
    std::vector<Pick> const& picks() const { return m_picks; }
    void setPicks(std::vector<Pick> picks); ///< event 25

    int mouseMode() const { return m_mouseMode; }
    static bool isMouseMode(int mode);
    bool setMouseMode(int mode); ///< event 26 when it is another mode; false for a number that is no mode

    // ---- the screen ------------------------------------------------------------------------------------------------
    /// Sets what draws the pages; null (as at first) for nothing. Not owned: set null before the display is destroyed.
    void setDisplay(Display* display) { m_display = display; }
    Display* display() const { return m_display; }

    /// Suspends drawing, or resumes it and draws what has changed.
    void setDrawing(bool on);
    bool isDrawing() const { return m_isDrawing; }

    /// Fits the active frame's view to its data. @return false when there is no frame or no data set
    bool fitData();

    /// Brings all frames of the page into view. @return false when there is no page
    bool fitAllFrames();

    /// Tells the listeners that the process ends. Event 15, the last one.
    void goDown();

private:
    template <typename Work>
    bool withoutThrowing(Work const& work) noexcept;
    template <typename Work>
    bool guarded(Work const& work) noexcept;
    std::string reasonAgainst(Operation& operation) const;
    void performLong(Operation& operation, std::shared_ptr<Journal::Entry> const& entry);
    void addStep(Operation const& operation, std::shared_ptr<Change> const& change,
                 std::shared_ptr<Journal::Entry> const& entry);
    void tellRemark(Operation const& operation) noexcept;
    void replacePages(std::vector<std::shared_ptr<Page>> pages, std::vector<Frame> laidOut);

    EventHub m_events;
    History m_history;
    Journal m_journal;
    Pages m_pages;
    LongWork m_work;
    LoadedValues m_loadedValues;
    FetchAhead m_fetchAhead;
    bool m_needsFetched = false; // by the operation that is about to run
    std::vector<Pick> m_picks;
    int m_mouseMode;
    Display* m_display = nullptr;
    bool m_isDrawing = true;
    std::string m_lastError;
    std::function<void(std::string const&)> m_remarkListener;
    std::unique_ptr<StyleTree> m_style;
};

} // namespace veldraw::kernel

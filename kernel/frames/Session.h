#pragma once

#include "kernel/events/EventHub.h"
#include "kernel/frames/Display.h"
#include "kernel/frames/FrameLoop.h"
#include "kernel/frames/Page.h"
#include "kernel/frames/Pick.h"
#include "kernel/undo/History.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace veldraw::kernel {

class Change;
class DeferredLoad;
class Progress;
class StyleTree;
class Waiter;
struct AxialCopies;
struct RotationAxis;
struct SpatialVariables;

/// The one kernel of the process: pages, their frames, the data sets in them, events and history.
///
/// Every change of what stands in the session goes through an operation of this class: it is checked first, then
/// carried out whole or not at all, told to the listeners, and can be undone under the name that the user saw. An
/// operation that is refused returns false, changes nothing, sends nothing and leaves its reason in lastError(). All
/// calls belong to the user-interface thread. While an operation waits for its computation, every other one is refused.
class Session
{
public:
    /// The kernel behind the C functions.
    static Session& instance();

    /// Starts with an empty page.
    Session();
    ~Session();

    EventHub& events() { return m_events; }
    History& history() { return m_history; }
    History const& history() const { return m_history; }
    StyleTree& style() { return *m_style; }

    // ---- pages and frames ------------------------------------------------------------------------------------------
    std::vector<std::shared_ptr<Page>> const& pages() const { return m_pages; }
    std::shared_ptr<Page> activePage() const;            ///< null when there is no page
    std::shared_ptr<Frame> activeFrame() const;          ///< null when there is no frame
    std::shared_ptr<DataSet> activeDataSet() const;      ///< data set of the active frame, null when there is none
    std::shared_ptr<Frame> frame(UniqueId id) const;     ///< null when there is none
    std::shared_ptr<DataSet> dataSet(UniqueId id) const; ///< null when no frame shows it

    /// Frames that show @p dataSet.
    std::vector<std::shared_ptr<Frame>> framesOf(DataSet const& dataSet) const;

    /// Throws all pages away and starts with an empty page; the history is forgotten. Events 16, 10.
    void clear();

    /// Throws even the page away (nothing left at all). Events 16.
    void removeAllPages();

    /// Puts @p frames on one fresh page, side by side in a grid, the first active; the history is forgotten. Events
    /// 16, 10.
    void openPage(std::vector<std::shared_ptr<Frame>> frames);

    /// A new frame on the active page, made active. Undoable "New Frame". Events 8, 10.
    /// @return null when there is no page
    std::shared_ptr<Frame> createFrame(std::string const& name, Rectangle const& rectangle);

    /// Adds a finished frame (with its data set), tiles the page, activates it. Undoable "New Frame". Events 8, 10.
    bool addFrame(std::shared_ptr<Frame> frame);

    /// Takes the frame off the page. Undoable "Delete Frame". Events 9, 10.
    bool deleteFrame(UniqueId frame);

    /// Not undoable. Event 10 when another frame becomes active.
    bool activateFrame(UniqueId frame);

    bool renameFrame(UniqueId frame, std::string const& name);          ///< "Rename Frame"; event 11
    bool setFrameRectangle(UniqueId frame, Rectangle const& rectangle); ///< "Move Frame"; event 11
    void tileFrames();                                                  ///< grid over the page; not undoable; event 11

    // ---- what a frame shows ----------------------------------------------------------------------------------------
    /// Gives the frame a data set, default axes, contour variable, plot type and line maps. Not undoable. Event 12.
    bool setFrameDataSet(UniqueId frame, std::shared_ptr<DataSet> dataSet);

    bool setPlotType(UniqueId frame, PlotType_e plotType); ///< "Plot Type"; event 7 "PlotType"
    /// @param assignment X, Y, Z, U, V, W or C; @param variable number, 0 = none. "Assign Variable"; event 7:
    ///        "TwoDAxis" or "ThreeDAxis", "GlobalTwoDVector"/"GlobalThreeDVector", "GlobalContour"
    bool assignVariable(UniqueId frame, char assignment, int variable);
    bool setShowContour(UniqueId frame, bool on); ///< "Contour"; event 7 "FieldLayers"
    bool setShowMesh(UniqueId frame, bool on);    ///< "Mesh"; event 7 "FieldLayers"
    bool setStretchAxes(UniqueId frame, bool on); ///< "Stretch Axes"; event 7 "FieldAxes"
    /// The first line map shows @p y over @p x of @p zone (numbers). "Line Map"; event 19.
    bool setLinePlot(UniqueId frame, int zone, int x, int y);

    bool setShowLines(UniqueId frame, bool on);   ///< "Line Layers"; event 7 "LinePlotLayers"
    bool setShowSymbols(UniqueId frame, bool on); ///< "Line Layers"; event 7 "LinePlotLayers"

    // ---- line maps -------------------------------------------------------------------------------------------------
    /// Appends a line map: first zone, second over first variable. Refused without a data set. "New Line Map"; event 19.
    bool createLineMap(UniqueId frame);

    /// Deletes line maps by their one-based numbers; true without a step when there is nothing to delete.
    /// "Delete Line Map"; event 19.
    bool deleteLineMaps(UniqueId frame, NumberSet const& maps);

    /// Alters line maps by their one-based numbers; nothing is changed when @p alter throws. "Line Map"; event 19.
    bool changeLineMaps(UniqueId frame, NumberSet const& maps, std::function<void(LineMap&)> const& alter);

    // ---- data ------------------------------------------------------------------------------------------------------
    /// Deletes variables in all zones. Refused: a locked data set, an empty set, a number that does not exist, all
    /// variables, all enabled variables. "Delete Variable"; event 2. Constant time in the number of points.
    bool deleteVariables(DataSet& dataSet, NumberSet const& variables);

    /// Appends a copy of each zone, in the order of the zones. Refused: a locked data set, an empty set, a number that does
    /// not exist. "Create Duplicate Zone"; event 4 with the copies. Constant time in the number of points.
    ///
    /// A copy has the name, type, dimensions, solution time, strand and auxiliary data of its source, and shares its
    /// connectivity and all its values: every field is on the share group of the source's field, so that nothing is
    /// copied until one of them is branched off to be written. A copy in a time strand thus stands beside its source at
    /// the same moment, and a copy of a static zone is static. It has an identifier of its own and is enabled, also when
    /// its source is not.
    bool duplicateZones(DataSet& dataSet, NumberSet const& zones);

    /// Turns zones in place about an axis, their vectors with them. "Axial Rotation"; event 0 with the zones and the
    /// variables that got other values. Without an event and a step when no value changes, as after a full turn.
    ///
    /// The new values stand on storage of their own; what the given zones shared among themselves they go on sharing, and
    /// zones that are not given keep what they have. All is computed in double and stored as float or double: whole
    /// numbers become floating ones that hold them. A passive component counts as 0 and stays passive where it stays 0.
    /// Points and vectors that are not finite stay as they are.
    ///
    /// Refused: a locked data set, an empty set of zones, zones or variables that do not exist, variables named twice, an
    /// axis without direction or not finite, a plane turned out of itself, an angle that is not finite, a vector (or point)
    /// whose components have their values at different places. So is the duplication.
    bool rotateZones(DataSet& dataSet, NumberSet const& zones, SpatialVariables const& variables,
                     RotationAxis const& axis, double degrees);

    /// Appends copies of zones, turned about an axis: first a copy of each zone at offset + angle, then at offset + 2 angle
    /// and so on. "Axial Duplication"; event 4 with the copies. The source itself stays where it is.
    ///
    /// A copy is as that of duplicateZones() with the turned values of rotateZones(); all that does not change is shared
    /// with its source. Also refused: fewer than one copy, and more zones than can be counted.
    bool duplicateZonesAxially(DataSet& dataSet, NumberSet const& zones, SpatialVariables const& variables,
                               RotationAxis const& axis, AxialCopies const& copies);

    /// Appends a mirrored copy of each zone of the frame's data set. "Create Mirror Zone"; event 4 with the copies.
    ///
    /// A copy is as that of duplicateZones(), but for the other sign of one coordinate and of the component of the frame's
    /// vector along it, in all zones where these are not passive. Cells keep their corners in their order, so that they
    /// are turned inside out: connectivity is shared, and its corners run the other way round.
    /// @param coordinate 'X', 'Y' or 'Z' as the frame's axes have them. Refused when none is assigned, and when the component
    ///        of the vector is another coordinate
    bool mirrorZones(UniqueId frame, NumberSet const& zones, char coordinate);

    /// Stores one value, converted to the type of the field: rounded for whole numbers. "Edit Value"; event 0 with the zones
    /// and variables that see the new value, and event 22 after it when storage was branched. True without a step when the
    /// value is that already.
    ///
    /// An edit of storage that is shared goes to all its fields, or, with @p autoBranch, to this field alone, which gets a
    /// copy of the values first. No other edit copies any, unless somebody reads the buffer at that moment. To take an edit
    /// back is to store the old bits again.
    /// @param index zero-based, as in Field
    ///
    /// Refused: a locked data set, numbers that do not exist, an index past the values or in a slot of no cell, a passive
    /// field, values that are not loaded, a number beyond the limits of the type.
    bool setValue(DataSet& dataSet, int zone, int variable, std::int64_t index, double value, bool autoBranch);

    // ---- loading ---------------------------------------------------------------------------------------------------
    // Loading changes no value: it is no step of the history, and a locked data set can be loaded as well. What is loaded
    // for one field is loaded for all that share its storage. Event 21 with the fields whose values have come or gone, after
    // event 23 with the zones whose dimensions have become known. Refused, with all as it was: numbers that do not exist, a
    // loader that fails, no memory, a cancel.
    //
    // Values are let go of only when memory asks for it: those loaded take more than the limit, or memory is refused to a load
    // or to an operation with one. Those that have not been used for the longest time go first; those never that have been
    // altered or cannot be loaded again, that are wanted in some zone, or whose variable a frame shows. What has made room
    // for a load that fails after all does not come back.

    /// Makes variables available in zones, and takes them for all that is wanted there from now on.
    bool makeVariablesAvailable(DataSet& dataSet, NumberSet const& zones, NumberSet const& variables);

    /// Loads variables in zones; what is wanted there stays as it was.
    bool loadVariables(DataSet& dataSet, NumberSet const& zones, NumberSet const& variables);

    /// Bytes that loaded values may take that can be loaded again; half of the machine's memory at first. To set it lets go at
    /// once of what is above it.
    std::int64_t loadedValuesLimit() const { return m_loadedValuesLimit; }
    void setLoadedValuesLimit(std::int64_t bytes);

    /// Finds out the dimensions of a zone.
    bool loadDimensions(DataSet& dataSet, int zone);

    bool renameZone(DataSet& dataSet, int zone, std::string const& name);         ///< "Rename Zone"; event 18
    bool renameVariable(DataSet& dataSet, int variable, std::string const& name); ///< "Rename Variable"; event 17
    bool setZoneEnabled(DataSet& dataSet, int zone, bool enabled);         ///< "Enable Zone"/"Disable Zone"; event 6
    bool setVariableEnabled(DataSet& dataSet, int variable, bool enabled); ///< "Enable Variable"/...; event 3
    bool setTitle(DataSet& dataSet, std::string const& title);             ///< "Data Set Title"; event 13
    void setLock(DataSet& dataSet, std::string const& holder);             ///< empty holder = unlock; event 14

    /// Adds or alters an item of auxiliary data. "Auxiliary Data"; event 41 or 43, and 42 when an addition is taken back. True
    /// without a step when the item is there already. Refused: no such owner, a name that is none.
    /// @param location kind of owner; zones, variables and maps are those of the active frame
    /// @param object   one-based number of a zone, variable or line map
    bool setAuxiliaryItem(AuxDataLocation_e location, int object, std::string const& name, std::string const& value,
                          bool retain);

    // ---- undo ------------------------------------------------------------------------------------------------------
    /// Takes the newest step back. The step's own events, then event 24. @return false when there is none
    bool undo();
    bool redo();

    // ---- walk over the frames of the active page -------------------------------------------------------------------
    /// Stands on the first frame, which counts as the active one until the walk goes on or ends. Nothing is sent.
    /// @return false when there is no frame
    bool startFrameLoop();
    bool nextFrameInLoop(); ///< @return false, standing where it stood, when there is no further frame
    void endFrameLoop();
    /// Puts another walk in the place of the present one, which it returns: an empty one sets the present one aside.
    FrameLoop exchangeFrameLoop(FrameLoop loop);

    // ---- what the user does in the work area -----------------------------------------------------------------------
    std::vector<Pick> const& picks() const { return m_picks; }
    void setPicks(std::vector<Pick> picks); ///< event 25

    int mouseMode() const { return m_mouseMode; }
    static bool isMouseMode(int mode);
    bool setMouseMode(int mode); ///< event 26 when it is another mode; false for a number that is no mode

    // ---- long work -------------------------------------------------------------------------------------------------
    /// Set by the user's cancel, taken back when the next operation starts. May be asked for and set on any thread; setting
    /// it interrupts the computation that is running.
    bool isInterrupted() const { return m_isInterrupted; }
    void setInterrupted(bool interrupted);

    /// What waits while an operation computes; null (as at first) for nothing but the wait itself. Not owned: to be taken
    /// back before it goes.
    void setWaiter(Waiter* waiter) { m_waiter = waiter; }

    /// Whether an operation computes, so that every other one is refused. Ask on the user-interface thread.
    bool isBusy() const { return m_isBusy; }

    /// Runs @p work to its end: on a thread of its own if a waiter is installed, which waits for it here. What the work
    /// reads in the session stays as it is meanwhile: operations are refused, style writes are carried out afterwards.
    /// @param name of the operation, as in the undo menu
    /// @throws what the work throws, Interrupted when the user has cancelled; std::logic_error while another one runs
    void runOperation(std::string const& name, std::function<void(Progress&)> const& work);

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

    /// Why the last refused operation was refused, in words for the message log.
    std::string const& lastError() const { return m_lastError; }
    void setLastError(std::string error) { m_lastError = std::move(error); }

    /// Who hears what an operation that has succeeded did not do, in words for the message log; nobody at first.
    void setRemarkListener(std::function<void(std::string const&)> listener) { m_remarkListener = std::move(listener); }

    /// Notes why an operation is refused; always false.
    bool refuse(char const* reason) noexcept;
    bool refuse(std::string reason) noexcept;

    Session(Session const&) = delete;
    Session& operator=(Session const&) = delete;

private:
    class Computation;

    std::shared_ptr<Page> pageOf(UniqueId frame) const;
    std::shared_ptr<DataSet> owned(DataSet const& dataSet) const;
    void insertFrame(std::shared_ptr<Page> const& page, std::shared_ptr<Frame> frame, bool tile);
    void emitActiveFrame(StateChange_e before);
    void bring(std::string const& name, DeferredLoad& load);
    std::shared_ptr<Change> editOf(DataSet const& dataSet, int zone, int variable, std::int64_t index,
                                   std::uint64_t bits, bool autoBranch);
    void replaceLineMaps(char const* step, std::shared_ptr<Frame> const& frame, std::vector<LineMap> maps);
    void performOperation(std::string const& name, std::shared_ptr<DeferredLoad> const& load,
                          std::function<void(Progress&)> const& work,
                          std::function<std::shared_ptr<Change>()> const& makeChange);
    void remark(std::string const& text) noexcept;
    bool setLayer(UniqueId frame, bool Frame::*layer, bool on, char const* step, char const* group, char const* name);

    /// Gives @p target another value in one undoable step; nothing at all happens when it has the value already.
    template <typename Value>
    void change(char const* step, std::shared_ptr<void> owner, Value& target, Value value, StateChangeEvent event);

    EventHub m_events;
    History m_history;
    std::int64_t m_loadedValuesLimit;
    std::vector<std::shared_ptr<Page>> m_pages;
    UniqueId m_activePage = 0;
    FrameLoop m_loop;
    std::vector<Pick> m_picks;
    int m_mouseMode;
    std::atomic<bool> m_isInterrupted{false};
    Waiter* m_waiter = nullptr;
    bool m_isBusy = false;
    std::mutex m_progressMutex;
    Progress* m_progress = nullptr; // of the computation that is running
    Display* m_display = nullptr;
    bool m_isDrawing = true;
    std::string m_lastError;
    std::function<void(std::string const&)> m_remarkListener;
    std::unique_ptr<StyleTree> m_style;
};

} // namespace veldraw::kernel

#include "python/ProgramSession.h"

#include "app/commands/DataFiles.h"
#include "kernel/frames/Page.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/session/Session.h"
#include "operations/CommandRunner.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "python/Failure.h"
#include "python/PythonNames.h"
#include "python/SignalWaiter.h"

#include <optional>
#include <utility>

namespace py = pybind11;

namespace veldraw::python {

namespace {

/// What there is to say besides failures, for the log of Python's program once an operation has ended: its handlers are code of others.
std::vector<std::string>& remarks()
{
    static auto* const texts = new std::vector<std::string>;
    return *texts;
}

void logRemarks()
{
    std::vector<std::string> const texts = std::exchange(remarks(), {});
    if (texts.empty())
        return;
    py::object const logger = py::module_::import("logging").attr("getLogger")("veldraw");
    for (std::string const& text : texts)
        logger.attr("info")("%s", text);
}

class PythonFiles : public app::DataFiles
{
public:
    PythonFiles()
        : DataFiles(kernel::Session::instance(), {})
    {
    }

    void savePicture(QString const&, app::PictureOptions const&) override
    {
        throw std::runtime_error("The module makes no pictures.");
    }

protected:
    void tell(QString const& text) override { remarks().push_back(text.toStdString()); }
    QString adviceToFollow() const override { return QStringLiteral("They are read with follow_paths=True."); }
    QString adviceToOverwrite() const override { return QStringLiteral("Give overwrite=True to allow that."); }
};

PythonFiles& files()
{
    static auto* const all = new PythonFiles;
    return *all;
}

kernel::Session& preparedSession()
{
    kernel::Session& made = kernel::Session::instance();
    made.journal().setRule(&sdk::AppLock::isRecording);
    made.setRemarkListener([](std::string const& text) { remarks().push_back(text); });
    SignalWaiter::instance();
    return made;
}

/// To be called after whatever the session has carried out.
void requireDone(bool isDone, std::string const& reason)
{
    SignalWaiter::instance().raisePending();
    if (!isDone)
        throw Failure(reason);
}

/// Carries out what answers whether it is done, and leaves its reason in the session.
template <typename Work>
void carryOut(Work const& work)
{
    SignalWaiter::instance().waitForOthers();
    bool const isDone = work();
    requireDone(isDone, session().lastError());
    logRemarks();
}

app::DataFiles::Reading readingOf(std::string const& deferral, bool followPaths)
{
    app::DataFiles::Reading reading;
    if (deferral == "always")
        reading.deferral = app::Deferral::Always;
    else if (deferral == "never")
        reading.deferral = app::Deferral::Never;
    else if (deferral != "auto")
        throw Failure("defer is \"auto\", \"always\" or \"never\", not \"" + deferral + "\".");
    reading.outsidePaths = followPaths ? app::OutsidePaths::Follow : app::OutsidePaths::Refuse;
    return reading;
}

operations::CommandArgument argumentOf(std::string name, std::vector<std::string> const& texts)
{
    operations::CommandArgument argument;
    argument.name = std::move(name);
    for (std::string const& text : texts)
        argument.parts.push_back({text, true, {}});
    return argument;
}

/// As run(), but for remarks: no code of others runs before it returns.
void runUnlogged(operations::Command const& command)
{
    SignalWaiter::instance().waitForOthers();
    operations::Outcome outcome;
    try {
        outcome = operations::CommandRunner(session(), registry()).run(command);
    } catch (operations::CommandError const& error) {
        throw Failure(inPythonNames(error.what(), registry().find(command.name)));
    }
    requireDone(outcome.isDone, outcome.text);
}

/// Makes another frame the active one for a scope. Other threads must not meet it there.
class ActiveFrame
{
public:
    explicit ActiveFrame(kernel::UniqueId frame)
        : m_before(session().activeFrame()->id)
    {
        session().activateFrame(frame);
    }
    ~ActiveFrame() { session().activateFrame(m_before); }
    ActiveFrame(ActiveFrame const&) = delete;
    ActiveFrame& operator=(ActiveFrame const&) = delete;

private:
    kernel::UniqueId m_before;
};

kernel::UniqueId frameOf(kernel::DataSet const& dataSet)
{
    if (auto const page = session().activePage())
        for (auto const& frame : page->frames)
            if (frame->dataSet.get() == &dataSet)
                return frame->id;
    throw Failure("No frame shows the data set.");
}

} // namespace

operations::Registry const& registry()
{
    static auto* const all = new operations::Registry(app::programOperations(&files()));
    return *all;
}

kernel::Session& session()
{
    static kernel::Session& prepared = preparedSession();
    return prepared;
}

void run(operations::Command const& command)
{
    runUnlogged(command);
    logRemarks();
}

void perform(kernel::Operation& operation)
{
    carryOut([&] { return session().perform(operation); });
}

void runWork(std::string const& name, std::function<void(kernel::Progress&)> const& work)
{
    carryOut([&] {
        try {
            session().runOperation(name, work);
            return true;
        } catch (std::exception const& error) {
            return session().refuse(error.what());
        }
    });
}

void loadValues(kernel::DataSet const& dataSet, int zone, int variable)
{
    if (dataSet.field(zone, variable)->isLoaded())
        return;
    sdk::AppLock const unrecorded(sdk::AppLock::DoNotRecord);
    kernel::LoadVariables loading(dataSet, {zone}, {variable}, kernel::LoadVariables::Ranges::Left);
    perform(loading);
}

void loadDimensions(kernel::DataSet const& dataSet, int zone)
{
    if (!dataSet.zone(zone)->isDeferred())
        return;
    sdk::AppLock const unrecorded(sdk::AppLock::DoNotRecord);
    kernel::LoadDimensions loading(dataSet, zone);
    perform(loading);
}

void undo()
{
    carryOut([] { return session().undo(); });
}

void redo()
{
    carryOut([] { return session().redo(); });
}

std::shared_ptr<kernel::DataSet> openFiles(std::vector<std::string> const& paths, std::string const& deferral,
                                           bool inNewFrames, bool followPaths)
{
    if (paths.empty())
        throw Failure("No file is given.");
    files().setReading(readingOf(deferral, followPaths));
    operations::Command command;
    command.name = "open";
    command.arguments = {argumentOf("files", paths), argumentOf("new-frames", {inNewFrames ? "yes" : "no"})};
    run(command);
    return session().activeDataSet();
}

void saveFile(std::shared_ptr<kernel::DataSet> const& dataSet, std::string const& path, bool overwrite)
{
    SignalWaiter::instance().waitForOthers();
    operations::Command command;
    command.name = "save";
    command.arguments = {argumentOf("file", {path}), argumentOf("overwrite", {overwrite ? "yes" : "no"})};
    {
        std::optional<ActiveFrame> other;
        if (dataSet != session().activeDataSet())
            other.emplace(frameOf(*dataSet));
        runUnlogged(command);
    }
    logRemarks();
}

void show(std::shared_ptr<kernel::DataSet> const& dataSet, bool inNewFrame)
{
    auto const frame = std::make_shared<kernel::Frame>(dataSet->title(), kernel::Rectangle{});
    frame->dataSet = dataSet;
    carryOut([&] {
        if (inNewFrame)
            return session().perform(kernel::AddFrame(frame));
        bool const isOpen = session().openPage({frame});
        if (isOpen)
            session().journal().add("# Data set of arrays", session().pages()); // which no script has
        return isOpen;
    });
}

} // namespace veldraw::python

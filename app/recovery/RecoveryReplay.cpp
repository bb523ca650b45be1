#include "app/recovery/RecoveryReplay.h"

#include "kernel/frames/Page.h"
#include "operations/CommandRunner.h"

#include <algorithm>
#include <stdexcept>

namespace veldraw::app {

namespace {

using Kind = RecoveryStep::Kind;

/// Repeats steps, one after the other.
class StepRunner
{
public:
    StepRunner(kernel::Session& session, FileOperations& files)
        : m_session(session)
        , m_operations(programOperations(&files))
        , m_runner(session, m_operations)
    {
    }

    /// @throws std::exception with the reason when it cannot be repeated
    void run(RecoveryStep const& step) const
    {
        if (step.kind == Kind::Save || (step.kind == Kind::Remark && !step.altersData))
            return;
        if (step.kind == Kind::Remark)
            throw std::runtime_error("No command stands for it.");
        if (step.kind == Kind::Open)
            requireUnchanged(step.files);
        else
            activate(step.frame);
        runCommand(step.text);
    }

    /// @throws std::exception where the work cannot go on from there
    void openBase(SavedBase const& base) const
    {
        QStringList const paths{QString::fromStdString(base.path)};
        runCommand(openCommand(paths, false).text());
        for (std::string const& command : base.commands)
            runCommand(command);
        auto const frame = m_session.activeFrame();
        if (!frame || !frame->dataSet || stateOf(*frame) != base.state)
            throw std::runtime_error("\"" + base.path +
                                     "\" has replaced the file that was open, and lacks something "
                                     "that the data set had.");
    }

private:
    static void requireUnchanged(std::vector<StampedFile> const& files)
    {
        std::string const difference = differenceOf(files);
        if (!difference.empty())
            throw std::runtime_error(difference);
    }

    void activate(int frame) const
    {
        auto const page = m_session.activePage();
        if (frame == 0 || !page)
            return;
        auto const& frames = page->frames;
        auto const number = static_cast<std::size_t>(frame) - 1;
        if (number >= frames.size() || frames[number] != m_session.activeFrame())
            runCommand(kernel::CommandText("activate-frame").number("frame", frame).text());
    }

    void runCommand(std::string const& text) const
    {
        auto const command = operations::readCommand(text);
        if (!command || command->name == savePictureName)
            return;
        operations::Outcome const outcome = m_runner.run(*command);
        if (!outcome.isDone)
            throw std::runtime_error(outcome.text);
    }

    kernel::Session& m_session;
    operations::Registry m_operations;
    operations::CommandRunner m_runner;
};

bool isWanted(RecoveryStep const& step)
{
    return !step.isUndone && step.altersData;
}

/// Whether all files that are to be opened are as they were.
bool areFilesUnchanged(std::vector<RecoveryStep> const& steps)
{
    return std::all_of(steps.begin(), steps.end(), [](RecoveryStep const& step) {
        return step.kind != Kind::Open || step.isUndone || differenceOf(step.files).empty();
    });
}

/// The last save that has everything that was done before it, if its files are as they were; null otherwise.
RecoveryStep const* usableBase(std::vector<RecoveryStep> const& steps)
{
    for (RecoveryStep const& step : steps) {
        if (step.base)
            return differenceOf(step.files).empty() ? &step : nullptr;
        if (step.altersData && step.isSaved == step.isUndone)
            return nullptr; // a step that was undone after the save
    }
    return nullptr;
}

} // namespace

ReplayOutcome replay(std::vector<RecoveryStep> const& steps, kernel::Session& session, FileOperations& files)
{
    StepRunner const runner(session, files);
    RecoveryStep const* const base = areFilesUnchanged(steps) ? nullptr : usableBase(steps);
    auto const first = base == nullptr ? steps.begin() : steps.begin() + (base - steps.data());
    ReplayOutcome outcome;
    outcome.wanted = static_cast<int>(std::count_if(first, steps.end(), &isWanted));
    for (auto step = first; step != steps.end(); ++step) {
        if (step->isUndone)
            continue;
        try {
            if (&*step == base)
                runner.openBase(*step->base);
            else
                runner.run(*step);
        } catch (std::exception const& error) {
            outcome.command = step->text;
            outcome.reason = error.what();
            return outcome;
        }
        outcome.done += isWanted(*step) ? 1 : 0;
    }
    return outcome;
}

} // namespace veldraw::app

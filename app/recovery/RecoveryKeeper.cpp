#include "app/recovery/RecoveryKeeper.h"

#include "host/MessageLog.h"
#include "kernel/frames/Page.h"
#include "operations/Command.h"

#include <algorithm>
#include <utility>

namespace veldraw::app {

namespace {

using Kind = RecoveryStep::Kind;

constexpr char problemStart[] = "What is done from now on cannot be recovered after a crash: ";

bool startsWith(std::string const& text, std::string const& start)
{
    return text.compare(0, start.size(), start) == 0;
}

bool opensInNewFrames(std::string const& text)
{
    auto const command = operations::readCommand(text);
    auto const* const argument = command ? command->find("new-frames") : nullptr;
    return argument != nullptr && argument->text() == "yes";
}

Kind kindOf(kernel::Journal::Entry const& entry)
{
    if (!entry.isCommand)
        return Kind::Remark;
    return startsWith(entry.text, "open ") ? Kind::Open : startsWith(entry.text, "save ") ? Kind::Save : Kind::Command;
}

/// The files that were read for a data set; see Importer.
std::vector<std::string> filesOf(kernel::DataSet const& dataSet)
{
    std::vector<std::string> files;
    for (kernel::LoaderInstructions const& load : dataSet.loaderInstructions()) {
        for (std::string const& word : load.words) {
            if (startsWith(word, "/"))
                files.push_back(word);
        }
    }
    return files;
}

} // namespace

// Without memory for a step there are no further ones either: they would be repeated without it.
template <typename Following>
void RecoveryKeeper::follow(Following const& following) noexcept
{
    if (m_isPaused)
        return;
    try {
        if (!m_isLost)
            following();
        else if (m_session.history().isClean())
            removeFile();
    } catch (std::exception const&) {
        m_isLost = true;
        tellOutOfMemory();
    }
}

RecoveryKeeper::Pause::Pause(RecoveryKeeper& keeper)
    : m_keeper(keeper)
{
    m_keeper.m_isPaused = true;
}

RecoveryKeeper::Pause::~Pause()
{
    m_keeper.m_isPaused = false;
    m_keeper.follow([this] {
        m_keeper.followJournal();
        m_keeper.findFiles();
        m_keeper.followHistory();
    });
}

RecoveryKeeper::RecoveryKeeper(kernel::Session& session, std::string const& folder)
    : m_session(session)
    , m_seen(session.journal().entries().size())
    , m_subscriptionToJournal(session.journal().addListener([this] { follow([this] { followJournal(); }); }))
    , m_subscription(session.events().subscribe([this](kernel::StateChangeEvent const& event) { hear(event); }))
    , m_file(folder, [this](std::string const& reason) {
        QMetaObject::invokeMethod(
            &m_thread, [this, reason] { tellProblem(reason); }, Qt::QueuedConnection);
    })
{
}

RecoveryKeeper::~RecoveryKeeper()
{
    m_session.journal().removeListener(m_subscriptionToJournal);
    m_session.events().unsubscribe(m_subscription);
}

void RecoveryKeeper::hear(kernel::StateChangeEvent const& event)
{
    follow([this, &event] {
        findFiles();
        if (event.kind == StateChange_StateRestored)
            followHistory();
    });
}

// The journal tells of an entry before its change happens, so that a change which ends the program is known.
void RecoveryKeeper::followJournal()
{
    auto const& entries = m_session.journal().entries();
    if (entries.empty() && m_seen > 0) {
        m_seen = 0;
        drop();
    }
    while (m_seen > entries.size()) { // one that has failed after all
        --m_seen;
        if (m_hasFile && !m_steps.empty())
            m_file.append(m_records.removed(m_steps.size() - 1));
        if (!m_steps.empty())
            m_steps.pop_back();
    }
    noteText();
    while (m_seen < entries.size())
        take(*entries[m_seen++]);
}

// Of a drag, the newest entry follows the mouse.
void RecoveryKeeper::noteText()
{
    if (m_steps.empty())
        return;
    RecoveryStep& step = m_steps.back();
    std::string const& text = m_session.journal().entries()[m_seen - 1]->text;
    if (step.text == text)
        return;
    step.text = text;
    if (m_hasFile)
        m_file.append(m_records.hasText(m_steps.size() - 1, text));
}

void RecoveryKeeper::take(Entry const& entry)
{
    RecoveryStep step;
    step.kind = kindOf(entry);
    step.text = entry.text;
    step.frame = entry.frame;
    step.altersData = entry.altersData;
    step.isUndone = entry.isUndone;
    if (step.kind == Kind::Open)
        takeOpen(std::move(step), !opensInNewFrames(entry.text));
    else if (step.kind == Kind::Save)
        takeSave(std::move(step));
    else
        add(std::move(step));
}

void RecoveryKeeper::takeOpen(RecoveryStep step, bool isFresh)
{
    if (isFresh)
        drop();
    add(std::move(step));
    m_opened = m_steps.size() - 1;
    for (std::string const& path : pathsOf(m_steps.back().text))
        addFile(*m_opened, path);
    if (isFresh)
        findFiles(); // new frames are there at the next event
}

/// Notes all the files that an operation has read.
void RecoveryKeeper::findFiles()
{
    std::optional<std::size_t> const step = std::exchange(m_opened, std::nullopt);
    if (!step || *step >= m_steps.size())
        return;
    for (auto const& page : m_session.pages().all()) {
        for (auto const& frame : page->frames) {
            if (!frame->dataSet)
                continue;
            for (std::string const& path : filesOf(*frame->dataSet))
                addFile(*step, path);
        }
    }
}

void RecoveryKeeper::addFile(std::size_t step, std::string const& path)
{
    if (!m_files.insert(path).second)
        return;
    m_steps[step].files.push_back(StampedFile::of(path));
    if (m_hasFile)
        m_file.append(m_records.hasFile(step, m_steps[step].files.back()));
}

void RecoveryKeeper::takeSave(RecoveryStep step)
{
    add(std::move(step));
    if (!m_session.history().isClean())
        return;
    for (RecoveryStep& earlier : m_steps)
        earlier.base.reset();
    std::vector<std::string> const paths = pathsOf(m_steps.back().text);
    if (paths.size() == 1) {
        m_steps.back().files = filesOfSave(paths.front());
        m_steps.back().base = baseOf(m_session, paths.front());
    }
    markSaved(m_steps);
    matchFile();
    if (m_listener)
        m_listener();
}

void RecoveryKeeper::add(RecoveryStep step)
{
    bool const isWork = step.altersData;
    m_steps.push_back(std::move(step));
    if (m_hasFile)
        m_file.append(m_records.added(m_steps.back()));
    else if (isWork)
        start();
}

void RecoveryKeeper::followHistory()
{
    auto const& entries = m_session.journal().entries();
    std::size_t const first = m_seen - m_steps.size();
    for (std::size_t n = 0; n < m_steps.size(); ++n) {
        bool const isUndone = entries[first + n]->isUndone;
        if (std::exchange(m_steps[n].isUndone, isUndone) != isUndone && m_hasFile)
            m_file.append(m_records.undone(n, isUndone));
    }
    matchFile();
}

// There is a file where there is unsaved work.
void RecoveryKeeper::matchFile()
{
    bool const isWork = countUnsaved(m_steps) > 0;
    if (isWork == m_hasFile)
        return;
    if (isWork)
        start();
    else
        removeFile();
}

void RecoveryKeeper::removeFile()
{
    if (std::exchange(m_hasFile, false))
        m_file.remove();
}

void RecoveryKeeper::start()
{
    m_hasFile = true;
    m_file.begin(m_records.start(m_steps));
}

void RecoveryKeeper::drop()
{
    m_steps.clear();
    m_files.clear();
    removeFile();
    if (m_listener)
        m_listener();
}

void RecoveryKeeper::forget()
{
    removeFile();
    markSaved(m_steps);
}

void RecoveryKeeper::tellOutOfMemory() noexcept
{
    try {
        tellProblem("out of memory");
    } catch (std::exception const&) {
        // Nor is there any for the remark.
    }
}

void RecoveryKeeper::tellProblem(std::string const& reason)
{
    if (!std::exchange(m_hasToldProblem, true))
        host::MessageLog::instance().add(MessageBoxType_Warning, problemStart + reason + ".");
}

} // namespace veldraw::app

#pragma once

#include "app/recovery/RecoveryFile.h"
#include "app/recovery/RecoveryRecords.h"
#include "kernel/session/Session.h"

#include <QObject>

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace veldraw::app {

/// Keeps on the disk what a user has done since files were opened, so that it can be repeated when the program ends before it is saved.
///
/// It follows the journal and the history of the session. There is a file as long as there is unsaved work: the first step on data makes it, a
/// save that leaves nothing unsaved removes it.
class RecoveryKeeper
{
public:
    /// @param session in which nothing has been opened yet; must outlive the keeper
    /// @param folder  where the file is made
    RecoveryKeeper(kernel::Session& session, std::string const& folder);

    /// Leaves the file where there is unsaved work.
    ~RecoveryKeeper();

    /// Nothing is written as long as this object lives; then all at once.
    class Pause
    {
    public:
        explicit Pause(RecoveryKeeper& keeper);
        ~Pause();
        Pause(Pause const&) = delete;
        Pause& operator=(Pause const&) = delete;

    private:
        RecoveryKeeper& m_keeper;
    };

    /// Removes the file, since its work is saved or not wanted.
    void forget();

    /// Waits until everything is on the disk. @return false when something could not be written
    bool finish() { return m_file.finish(); }

    /// Sets what is called when files were opened in the place of all others, or everything has been saved.
    void setListener(std::function<void()> listener) { m_listener = std::move(listener); }

    RecoveryKeeper(RecoveryKeeper const&) = delete;
    RecoveryKeeper& operator=(RecoveryKeeper const&) = delete;

private:
    using Entry = kernel::Journal::Entry;

    void hear(kernel::StateChangeEvent const& event);
    template <typename Following>
    void follow(Following const& following) noexcept;
    void followJournal();
    void followHistory();
    void take(Entry const& entry);
    void takeOpen(RecoveryStep step, bool isFresh);
    void takeSave(RecoveryStep step);
    void noteText();
    void add(RecoveryStep step);
    void addFile(std::size_t step, std::string const& path);
    void findFiles();
    void matchFile();
    void removeFile();
    void start();
    void drop();
    void tellOutOfMemory() noexcept;
    void tellProblem(std::string const& reason);

    kernel::Session& m_session;
    std::vector<RecoveryStep> m_steps;   // the last entries of the journal
    std::size_t m_seen = 0;              // entries of the journal
    std::set<std::string> m_files;       // that are noted
    std::optional<std::size_t> m_opened; // step that opens files whose names are known at the next event
    bool m_hasFile = false;
    bool m_isPaused = false;
    bool m_isLost = false; // a step could not be noted
    bool m_hasToldProblem = false;
    RecoveryRecords m_records;
    std::function<void()> m_listener;
    QObject m_thread; // where problems are told
    int m_subscriptionToJournal;
    kernel::EventHub::Subscription m_subscription;
    RecoveryFile m_file; // ends first, since its thread uses the others
};

} // namespace veldraw::app

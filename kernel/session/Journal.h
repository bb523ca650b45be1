#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/undo/StepNote.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::kernel {

class Operation;
class Pages;

/// What has been done in a session, command by command, so that it can be done again. What is undone stays, marked as such.
///
/// Every operation that the session carries out stands here by itself; what is no operation, such as opening a file, is added by whoever
/// does it.
class Journal
{
public:
    struct Entry : StepNote
    {
        std::string text;        ///< a command; for what no command stands for, what the undo menu calls it, behind a #
        bool isCommand = true;   ///< whether it can be repeated
        bool altersData = false; ///< whether a data set differs from its file by it
        int frame = 0;           ///< one-based number of the frame that has to be active for it; 0 for none
        int frameAfterwards = 0; ///< and of the one that is active after it, if it was active before
        UniqueId run = 0;        ///< of the operation
    };

    std::vector<std::shared_ptr<Entry const>> const& entries() const { return m_entries; }

    /// An entry for an operation that is about to be carried out, and room for it; null while nothing is recorded.
    /// @throws std::bad_alloc
    std::shared_ptr<Entry> entryFor(Operation const& operation, Pages const& pages);

    /// An entry for a frame that gets the data set that another one shows; null also where no frame shows it yet. @throws std::bad_alloc
    std::shared_ptr<Entry> entryForData(UniqueId frame, UniqueId dataSet, Pages const& pages);

    /// Adds an entry, or goes on with the newest one if both are of the same run. @param entry null adds none
    void add(std::shared_ptr<Entry> const& entry) noexcept;

    /// Takes an entry away again whose operation has failed after all.
    void withdraw(std::shared_ptr<Entry> const& entry) noexcept;

    /// Adds a command that is no operation of the kernel, unless nothing is recorded. @throws std::bad_alloc
    void add(std::string command, Pages const& pages);

    /// To be called after an operation that has an entry.
    void complete(Entry& entry, Pages const& pages);

    /// Forgets everything.
    void clear();

    /// A script that does the same: all that is not undone, and changes of the active frame in between.
    std::string script() const;

    /// Sets a function that is asked whether to record; none (as at first): always.
    void setRule(std::function<bool()> rule) { m_rule = std::move(rule); }

    /// Adds a function that is called when there is another entry, or a text has changed; undo is told by the history's listener and by
    /// event 24. Its exceptions are ignored. @return what removeListener() takes
    int addListener(std::function<void()> listener);
    void removeListener(int listener) { m_listeners.erase(listener); }

private:
    bool isRecording() const { return !m_rule || m_rule(); }
    void makeRoom();
    void changed() const noexcept;

    std::vector<std::shared_ptr<Entry const>> m_entries;
    std::shared_ptr<Entry> m_newest;
    std::function<bool()> m_rule;
    std::map<int, std::function<void()>> m_listeners;
    int m_lastListener = 0;
};

} // namespace veldraw::kernel

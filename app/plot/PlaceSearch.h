#pragma once

#include "app/plot/SeenCell.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace veldraw::app {

/// Searches for what is seen at a position, on a thread of its own, so that no one waits for 10 million cells.
///
/// There is one search at a time. Starting another one interrupts it, and its answer is never given.
class PlaceSearch : public QObject
{
    Q_OBJECT

public:
    /// Called on the thread of this object.
    using Answer = std::function<void(SeenQuestion const& question, std::optional<SeenCell> const& found)>;

    explicit PlaceSearch(QObject* parent = nullptr);
    ~PlaceSearch() override;

    void start(SeenQuestion question, Answer answer);

    /// Interrupts the search, if there is one.
    void drop();

    bool isSearching() const { return m_job != nullptr; }

private:
    class Job;

    void finish(Job const* job);

    std::unique_ptr<Job> m_job;
    std::vector<std::unique_ptr<Job>> m_dropped; // until their threads have ended
};

} // namespace veldraw::app

#pragma once

#include "kernel/events/EventHub.h"
#include "kernel/frames/Page.h"
#include "kernel/operations/Operation.h"

#include <vector>

namespace veldraw::kernel {

/// Adds a frame, or several, to the active page, over the others, and makes the last one active. Step "New Frame" or "New
/// Frames"; an event 8 for each, event 10.
///
/// A frame with a data set for which layOut() has not been called yet is laid out. Refused: no page, no frame, a frame that is
/// on a page already, a size that is negative or not finite. Then none of the frames is added.
class AddFrame : public Operation
{
public:
    enum class Place
    {
        AsItStands, ///< the frame keeps its rectangle
        Tiled       ///< all frames of the page are put side by side
    };

    explicit AddFrame(std::shared_ptr<Frame> frame, Place place = Place::Tiled)
        : m_frames{std::move(frame)}
        , m_place(place)
    {
    }

    explicit AddFrame(std::vector<std::shared_ptr<Frame>> frames)
        : m_frames(std::move(frames))
        , m_place(Place::Tiled)
    {
    }

    CommandText command() const override;
    /// A frame for the middle of a page, with the name of its number there. @param dataSet null for none
    static std::shared_ptr<Frame> frameFor(Page const& page, std::shared_ptr<DataSet> dataSet);

    /// Says what command adds the same, where the data come from elsewhere.
    void setCommand(CommandText command) { m_command = std::move(command); }

    std::string name() const override { return m_frames.size() > 1 ? "New Frames" : "New Frame"; }
    std::string find(Pages const& pages) override;
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    static constexpr int noLike = -1;

    /// One-based number of a frame with the same data set, 0 for a frame without data; noLike if no command tells what is added: data that
    /// no frame shows yet come from a file.
    int likeFrame() const;

    std::vector<std::shared_ptr<Frame>> m_frames;
    Place m_place;
    std::shared_ptr<Page> m_page;
    bool m_isOnPage = false;
    int m_like = noLike;
    CommandText m_command;
};

/// Takes a frame off its page; the one in front is active then. "Delete Frame"; events 9, 10. Refused: a frame that does
/// not exist.
class DeleteFrame : public Operation
{
public:
    explicit DeleteFrame(UniqueId frame)
        : m_frame(frame)
    {
    }

    CommandText command() const override;
    std::string name() const override { return "Delete Frame"; }
    std::string find(Pages const& pages) override;
    UniqueId subject() const override { return m_frame; }
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    UniqueId m_frame;
    std::shared_ptr<Page> m_page;
};

} // namespace veldraw::kernel

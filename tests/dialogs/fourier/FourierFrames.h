#pragma once

#include "kernel/frames/Page.h"
#include "kernel/operations/AddFrame.h"
#include "tests/dialogs/models/SampleSession.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

/// The kernel with a data set of two lines, Wing and Body, in a frame of 8 by 6 inches whose corner is at (1, 1), on a paper of 11
/// by 8.5 inches.
class FourierFrames : public testing::Test
{
protected:
    FourierFrames()
    {
        for (auto const& zone : sample.dataSet().zones()) {
            zone->i = 6;
            zone->j = 1;
        }
    }

    long long source() const { return sample.frame()->id; }
    long long active() const { return sample.session().activeFrame()->id; }
    kernel::Page& page() const { return *sample.session().activePage(); }
    kernel::Frame& frame(long long id) const { return *sample.session().frame(id); }

    /// Adds a frame with the sample's data, or with none, and activates the source again.
    long long addFrame(bool hasData)
    {
        auto const added = std::make_shared<kernel::Frame>("Added", kernel::Rectangle{0.0, 0.0, 2.0, 1.0});
        added->dataSet = hasData ? sample.frame()->dataSet : nullptr;
        sample.session().perform(kernel::AddFrame(added, kernel::AddFrame::Place::AsItStands));
        sample.session().activateFrame(source());
        return added->id;
    }

    void setPaper(double width, double height) const
    {
        page().paperWidth = width;
        page().paperHeight = height;
    }

    /// The places of all frames in their order.
    std::vector<kernel::Rectangle> places() const
    {
        std::vector<kernel::Rectangle> places;
        for (auto const& each : page().frames)
            places.push_back(each->rectangle);
        return places;
    }

    SampleSession sample{{"Wing", "Body"}, {"Time", "U", "V", "W", "A", "B"}};
};

} // namespace veldraw::tests

#include "tests/kernel/support/MemorySweep.h"

#include <algorithm>
#include <vector>

namespace veldraw::tests {

using kernel::Frame;
using kernel::Rectangle;

TEST(PagesWithoutMemory, AreReplacedWhollyOrNotAtAll)
{
    EXPECT_GE(sweepMemory([](MemoryStage& stage) { return stage.session.clear(); }), 3);
    EXPECT_GE(sweepMemory([](MemoryStage& stage) { return stage.session.removeAllPages(); }), 1);
}

TEST(PagesWithoutMemory, AreOpenedWhollyOrNotAtAll)
{
    int refusals = 0;
    bool areWhole = true;
    auto const open = [&](MemoryStage& stage) {
        Rectangle const fresh{0, 0, 1, 1};
        std::vector<std::shared_ptr<Frame>> frames;
        for (int frame = 0; frame < 3; ++frame) {
            frames.push_back(std::make_shared<Frame>("a frame of the new page", fresh));
            frames.back()->dataSet = stage.dataSet;
        }
        bool const isOpen = stage.session.openPage(frames);
        refusals += isOpen ? 0 : 1;
        auto const isSketch = [&](auto const& frame) {
            return frame->plotType == PlotType_Sketch && frame->rectangle == fresh && frame->lineMaps.empty();
        };
        areWhole = areWhole && (isOpen ? std::none_of(frames.begin(), frames.end(), isSketch)
                                       : std::all_of(frames.begin(), frames.end(), isSketch));
        return isOpen;
    };
    EXPECT_GE(sweepMemory(open), 20);
    EXPECT_GE(refusals, 40);
    EXPECT_TRUE(areWhole) << "frames of a page that was refused are as they were";
}

TEST(PagesWithoutMemory, AreNotReplacedWhileAnOperationComputes)
{
    MemoryStage stage;
    std::string const before = stateDigest(stage.session);
    stage.session.runOperation("computing", [&](kernel::Progress&) {
        EXPECT_FALSE(stage.session.clear());
        EXPECT_FALSE(stage.session.removeAllPages());
        EXPECT_FALSE(stage.session.openPage({stage.frame}));
        EXPECT_EQ(stage.session.lastError(), "Another operation is running.");
    });
    EXPECT_EQ(stateDigest(stage.session), before);
    EXPECT_EQ(stage.recorder->events, 0);
}

} // namespace veldraw::tests

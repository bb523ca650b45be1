#include "app/import/formats/vtkxml/BlockZones.h"

#include "tests/app/support/WatchedProgress.h"

#include <vtkImageData.h>
#include <vtkNew.h>

#include <gtest/gtest.h>

namespace veldraw::tests {

TEST(BlockZones, AreNotMadeToTheEndAfterACancel)
{
    vtkNew<vtkImageData> image;
    image->SetDimensions(2000, 1000, 1);
    std::vector<std::string> remarks;
    std::vector<app::ImportedZone> zones;
    InterruptedProgress cancelled;
    EXPECT_THROW(app::addZonesOf(image, "image", {}, remarks, zones, cancelled), kernel::Interrupted);
    kernel::Progress progress;
    progress.setTotal(10);
    app::addZonesOf(image, "image", {}, remarks, zones, progress);
    ASSERT_EQ(zones.size(), 1U);
    EXPECT_EQ(zones[0].zone->pointCount(), 2000000);
    EXPECT_EQ(progress.done(), 0) << "who reads the file counts";
}

} // namespace veldraw::tests

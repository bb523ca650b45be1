// A line plot of the results of a Fourier transform while a later one replaces them.
#include "kernel/operations/FourierTransform.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/SetValue.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <vtkAxis.h>

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

class LineViewOfSpectrum : public ::testing::Test
{
protected:
    LineViewOfSpectrum()
        : page({SampleData::waveFrame(SampleData::waves(100))})
    {
        transform(false);
        page.session().perform(kernel::SetLinePlot(page.frame().id, 2, 4, 5));
        page.session().perform(kernel::DeleteLineMaps(page.frame().id, {2}));
        before = page.plot();
    }

    /// The spectrum of the sine over the time, over the earlier one.
    void transform(bool includeConjugates)
    {
        kernel::FourierTransform::Choice const choice{
            {WindowFunction_Rectangular, includeConjugates}, false, true, true};
        kernel::FourierTransform operation(*page.frame().dataSet, 1, {2}, {1}, choice);
        ASSERT_TRUE(page.session().perform(operation)) << page.session().lastError();
        ASSERT_EQ(operation.resultZones(), kernel::NumberSet{2});
    }

    /// The picture of a page that is opened with the same data.
    QImage freshPlot()
    {
        auto const frame = SampleData::waveFrame(page.frame().dataSet);
        frame->lineMaps = page.frame().lineMaps;
        PlotTestPage fresh({frame});
        return fresh.plot();
    }

    PlotTestPage page;
    QImage before;
};

} // namespace

TEST_F(LineViewOfSpectrum, FollowsResultsThatAreReplacedInPlace)
{
    ASSERT_TRUE(page.session().perform(kernel::SetValue(*page.frame().dataSet, 1, 2, 60, 30.0, false)));
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
    transform(false);
    QImage const after = page.plot();
    EXPECT_GT(PlotTestPage::differingPixels(before, after), 500);
    EXPECT_EQ(PlotTestPage::differingPixels(after, freshPlot()), 0);
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
}

TEST_F(LineViewOfSpectrum, FollowsAnotherNumberOfFrequencies)
{
    transform(true);
    vtkAxis& bottom = *page.lines().chart().GetAxis(vtkAxis::BOTTOM);
    QImage const after = page.plot();
    EXPECT_LT(bottom.GetMinimum(), -3.0); // negative frequencies
    EXPECT_EQ(PlotTestPage::differingPixels(after, freshPlot()), 0);
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot()), 0);
}

} // namespace veldraw::tests

// Colours, line styles, widths and symbols of the curves of a line plot.
#include "app/plot/PlotTheme.h"
#include "kernel/operations/SetLineMaps.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <vtkPlot.h>

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

constexpr int red = 0xE00000;

/// Two level lines, at 0 and 1, over 0 to 10.
class CurveLooks : public testing::Test
{
protected:
    CurveLooks()
    {
        auto const set = SampleData::waves(11);
        for (std::int64_t n = 0; n < 11; ++n) {
            writeValue(*set->field(1, 1)->group(), n, static_cast<double>(n));
            writeValue(*set->field(1, 2)->group(), n, 0.0);
            writeValue(*set->field(1, 3)->group(), n, 1.0);
        }
        m_page = std::make_unique<PlotTestPage>(std::vector{SampleData::waveFrame(set)});
    }

    PlotTestPage& page() { return *m_page; }

    void set(kernel::LineMapSettings const& settings)
    {
        ASSERT_TRUE(page().session().perform(kernel::SetLineMaps(page().frame().id, {1}, settings)));
    }

    /// Red pixels of the first curve, without its piece in the legend.
    int inked(std::string const& name = {})
    {
        QImage const plot = page().plot(0, name);
        int const legend = static_cast<int>(page().lines().legend().height());
        return PlotTestPage::pixelsNear(plot.copy(0, legend, plot.width(), plot.height() - legend), QColor(0xE0, 0, 0),
                                        60);
    }

    static kernel::LineMapSettings inRed()
    {
        kernel::LineMapSettings settings;
        settings.colour = red;
        return settings;
    }

private:
    std::unique_ptr<PlotTestPage> m_page;
};

} // namespace

TEST_F(CurveLooks, HaveAColourOfTheirOwn)
{
    EXPECT_EQ(inked(), 0);
    set(inRed());
    EXPECT_GT(inked("look-red"), 700);
    EXPECT_GT(PlotTestPage::pixelsNear(page().plot(), app::PlotTheme::curve(1), 30), 700) << "the other one stays";
    page().session().undo();
    EXPECT_EQ(inked(), 0);
}

TEST_F(CurveLooks, KeepTheirAutomaticColourWhenOthersAreHidden)
{
    kernel::LineMapSettings hidden;
    hidden.active = false;
    set(hidden);
    QImage const plot = page().plot(0, "look-second-alone");
    EXPECT_GT(PlotTestPage::pixelsNear(plot, app::PlotTheme::curve(1), 30), 1000);
    EXPECT_EQ(PlotTestPage::pixelsNear(plot, app::PlotTheme::curve(0), 30), 0);
}

TEST_F(CurveLooks, AreAsWideAsTheyAreSet)
{
    kernel::LineMapSettings wide = inRed();
    wide.width = 4.0;
    set(wide);
    int const four = inked();
    wide.width = 12.0;
    set(wide);
    int const twelve = inked("look-wide");
    EXPECT_NEAR(static_cast<double>(twelve) / four, 3.0, 0.8) << "their rims are blurred";
}

TEST_F(CurveLooks, AreDashedAndDotted)
{
    kernel::LineMapSettings look = inRed();
    look.width = 3.0;
    set(look);
    int const solid = inked("look-solid");
    struct Case
    {
        kernel::LineStyle style;
        char const* name;
        double least; // shares of a solid line
        double most;
    };
    for (Case const& wanted : {Case{kernel::LineStyle::Dashed, "look-dashed", 0.35, 0.9},
                               Case{kernel::LineStyle::Dotted, "look-dotted", 0.1, 0.7},
                               Case{kernel::LineStyle::DashDot, "look-dash-dot", 0.2, 0.9},
                               Case{kernel::LineStyle::DashDotDot, "look-dash-dot-dot", 0.2, 0.9}}) {
        look.style = wanted.style;
        set(look);
        double const share = static_cast<double>(inked(wanted.name)) / solid;
        EXPECT_GT(share, wanted.least) << wanted.name;
        EXPECT_LT(share, wanted.most) << wanted.name;
    }
    look.style = kernel::LineStyle::None;
    set(look);
    EXPECT_EQ(inked("look-none"), 0);
}

TEST_F(CurveLooks, HaveSymbolsWhereThePlotHasNone)
{
    kernel::LineMapSettings look = inRed();
    look.style = kernel::LineStyle::None;
    look.symbols = std::optional<bool>(true);
    set(look);
    EXPECT_GT(inked("look-symbols"), 11 * 20);
    kernel::UniqueId const frame = page().frame().id;
    ASSERT_TRUE(page().session().perform(kernel::SetPlotOption(frame, &kernel::Frame::showSymbols, true)));
    look.symbols = std::optional<bool>(false);
    set(look);
    EXPECT_EQ(inked(), 0) << "and none where the plot has some";
    look.symbols.emplace();
    set(look);
    EXPECT_GT(inked(), 11 * 20) << "as the plot has it";
}

} // namespace veldraw::tests

#include "app/plot/ColourLegend.h"

#include "app/plot/ColourMap.h"
#include "app/plot/PlotTheme.h"
#include "app/plot/TextFit.h"
#include "kernel/operations/RenameZone.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <vtkTextProperty.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using testing::ElementsAre;

namespace {

constexpr char longName[] = "time_averaged_turbulent_kinetic_energy_of_the_third_stage_Z";

QImage legendOf(PlotTestPage& page, std::string const& name = {})
{
    QImage const plot = page.plot(0, name);
    qreal const ratio = plot.devicePixelRatio();
    QSizeF const area = QSizeF(plot.size()) / ratio;
    int const width = static_cast<int>(page.field().legend().widthIn(area, ratio) * ratio);
    return plot.copy(plot.width() - width, 0, width, plot.height());
}

std::shared_ptr<kernel::DataSet> sheetWith(double low, double high)
{
    auto const set = SampleData::sheet(9, 9);
    kernel::ShareGroup& values = *set->field(1, 3)->group();
    for (std::int64_t n = 0; n < values.size(); ++n)
        writeValue(values, n, n % 9 == 0 ? low : n % 9 == 8 ? high : 0.5 * low + 0.5 * high);
    return set;
}

QString joined(QString name)
{
    return name.remove(QLatin1Char('\n'));
}

QColor barColour(double share)
{
    double rgb[3];
    app::ColourMap::create(0.0, 1.0)->GetColor(share, rgb);
    return QColor::fromRgbF(rgb[0], rgb[1], rgb[2]);
}

} // namespace

TEST(Legend, HasRoundNumbers)
{
    PlotTestPage page({SampleData::frame("Sheet", sheetWith(0.0137, 0.986), PlotType_Cartesian2D)});
    legendOf(page, "legend-round");
    EXPECT_THAT(page.field().legend().ticks().labels, ElementsAre("0.2", "0.4", "0.6", "0.8"));
}

TEST(Legend, TellsCloseValuesApartAndHasRoomForTheirDigits)
{
    PlotTestPage page({SampleData::frame("Sheet", sheetWith(1e6 - 1e-3, 1e6 + 1e-3), PlotType_Cartesian2D)});
    QImage const legend = legendOf(page, "legend-close");
    EXPECT_THAT(page.field().legend().ticks().labels,
                ElementsAre("999999.9990", "999999.9995", "1000000.0000", "1000000.0005", "1000000.0010"));
    EXPECT_EQ(PlotTestPage::inkedPixels(legend.copy(legend.width() - 5, 0, 5, legend.height())), 0);
    EXPECT_GT(PlotTestPage::pixelsNear(legend, app::PlotTheme::quietText(), 60), 500);
}

TEST(Legend, ShowsAFieldThatIsTheSameEverywhereInOneColourWithOneNumber)
{
    PlotTestPage page({SampleData::frame("Sheet", sheetWith(101325.0, 101325.0), PlotType_Cartesian2D)});
    QImage const legend = legendOf(page, "legend-constant");
    EXPECT_THAT(page.field().legend().ticks().labels, ElementsAre("101325"));
    EXPECT_GT(PlotTestPage::pixelsNear(page.plot(), barColour(0.5), 3), 50000) << "the field";
    int const bar = PlotTestPage::pixelsNear(legend, barColour(0.5), 3);
    EXPECT_GT(bar, 2000) << "the bar";
    EXPECT_LT(PlotTestPage::colouredPixels(legend), bar + bar / 10) << "no other colour";
}

TEST(Legend, ShowsEveryColourOfTheFlood)
{
    PlotTestPage page({SampleData::frame("Sheet", sheetWith(0.0, 1.0), PlotType_Cartesian2D)});
    QImage const legend = legendOf(page);
    for (double const share : {0.01, 0.25, 0.5, 0.75, 0.99})
        EXPECT_GT(PlotTestPage::pixelsNear(legend, barColour(share), 6), 15) << share;
}

TEST(Legend, StandsHugeAndTinyRanges)
{
    for (double const size : {1e300, 1e-300, 1e15, 1e-15}) {
        PlotTestPage page({SampleData::frame("Sheet", sheetWith(-size, size), PlotType_Cartesian2D)});
        QImage const legend = legendOf(page);
        EXPECT_EQ(page.field().legend().ticks().labels.size(), 5U) << size;
        EXPECT_GT(PlotTestPage::pixelsNear(legend, barColour(0.01)), 10) << size;
        EXPECT_GT(PlotTestPage::pixelsNear(legend, barColour(0.99)), 10) << size;
    }
}

TEST(Legend, ShowsALongNameWholeAndClearOfTheEdge)
{
    for (PlotType_e const type : {PlotType_Cartesian2D, PlotType_Cartesian3D}) {
        auto const set = type == PlotType_Cartesian2D ? SampleData::sheet(9, 9) : SampleData::block(9, 9, 9);
        PlotTestPage page({SampleData::frame("Named", set, type)});
        for (std::string const& name : {std::string("p"), std::string("displacement_X"), std::string(longName)}) {
            ASSERT_TRUE(page.session().perform(kernel::RenameVariable(*set, set->variableCount(), name)));
            QImage const legend = legendOf(page, "legend-" + name.substr(0, 14) + std::to_string(type));
            EXPECT_EQ(PlotTestPage::inkedPixels(legend.copy(legend.width() - 5, 0, 5, legend.height())), 0) << name;
            EXPECT_GT(PlotTestPage::pixelsNear(legend, app::PlotTheme::text(), 40), name.size() > 1 ? 100 : 5) << name;
            EXPECT_EQ(joined(page.field().legend().shownName()).toStdString(), name);
        }
    }
}

TEST(Legend, LeavesASmallFrameToThePlot)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(9, 9), PlotType_Cartesian2D)}, {170, 150});
    page.picture("legend-small");
    EXPECT_TRUE(page.field().legend().isShown());
    QRect const area = page.view().plotArea(page.frame().id);
    EXPECT_EQ(page.field().legend().widthIn(area.size(), 1.0), 0.0);
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot()), 300);
}

namespace {

class TextFitTest : public testing::Test
{
protected:
    TextFitTest() { app::PlotTheme::apply(*property, app::PlotTheme::text(), app::PlotTheme::titleSize, true); }

    app::TextFit fit(double width, QString const& text, int lines)
    {
        return app::TextFit::into(width, text, *property, 1.0, lines);
    }

    double widthOf(app::TextFit const& fitted)
    {
        vtkNew<vtkTextProperty> sized;
        sized->ShallowCopy(property);
        sized->SetFontSize(fitted.size);
        return app::TextFit::sizeOf(fitted.text, *sized, 1.0).width();
    }

    vtkNew<vtkTextProperty> property;
};

} // namespace

TEST_F(TextFitTest, LeavesAloneWhatFits)
{
    EXPECT_EQ(fit(200.0, QStringLiteral("pressure"), 1).text, QStringLiteral("pressure"));
    EXPECT_EQ(fit(200.0, QStringLiteral("pressure"), 1).size, app::PlotTheme::titleSize);
    EXPECT_EQ(fit(200.0, QString(), 3).text, QString());
}

TEST_F(TextFitTest, BreaksALongNameAtTheEndsOfItsWords)
{
    app::TextFit const fitted = fit(110.0, QString::fromLatin1(longName), 8);
    EXPECT_EQ(joined(fitted.text), QString::fromLatin1(longName));
    EXPECT_LE(widthOf(fitted), 110.0);
    QStringList const lines = fitted.text.split(QLatin1Char('\n'));
    ASSERT_GT(lines.size(), 2);
    for (int n = 0; n + 1 < lines.size(); ++n)
        EXPECT_TRUE(lines[n].endsWith(QLatin1Char('_'))) << lines[n].toStdString();
}

TEST_F(TextFitTest, BreaksAWordThatIsWiderThanALine)
{
    QString const word(60, QLatin1Char('w'));
    app::TextFit const fitted = fit(100.0, word, 12);
    EXPECT_EQ(joined(fitted.text), word);
    EXPECT_LE(widthOf(fitted), 100.0);
}

TEST_F(TextFitTest, LeavesOutTheMiddleOfWhatFitsOnNoNumberOfLines)
{
    QString const text = QString(200, QLatin1Char('a')) + QStringLiteral("_Z");
    for (int const lines : {1, 2, 4}) {
        app::TextFit const fitted = fit(100.0, text, lines);
        EXPECT_EQ(fitted.text.count(QLatin1Char('\n')), lines - 1);
        EXPECT_LE(widthOf(fitted), 100.0);
        EXPECT_TRUE(joined(fitted.text).endsWith(QStringLiteral("a_Z"))) << fitted.text.toStdString();
        EXPECT_TRUE(fitted.text.contains(QChar(0x2026)));
        EXPECT_GT(joined(fitted.text).size(), 8 * lines);
    }
}

} // namespace veldraw::tests

#include "app/files/PictureOptions.h"
#include "app/plot/PlotTheme.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

using app::PictureOptions;

std::vector<std::shared_ptr<kernel::Frame>> spaceAndCurves()
{
    return {SampleData::frame("Flow", SampleData::block(30, 20, 12), PlotType_Cartesian3D),
            SampleData::waveFrame(SampleData::waves(300))};
}

PictureOptions sized(QSize const& size, double scale)
{
    PictureOptions options;
    options.size = size;
    options.scale = scale;
    return options;
}

QImage onWhite(QImage const& picture)
{
    QImage whole(picture.size(), QImage::Format_RGB32);
    whole.fill(Qt::white);
    QPainter(&whole).drawImage(0, 0, picture);
    return whole;
}

/// The largest difference of any channel of any pixel.
int largestDifference(QImage const& a, QImage const& b)
{
    int largest = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            QColor const one = a.pixelColor(x, y);
            QColor const other = b.pixelColor(x, y);
            largest = std::max({largest, std::abs(one.red() - other.red()), std::abs(one.green() - other.green()),
                                std::abs(one.blue() - other.blue())});
        }
    return largest;
}

double shareOfInk(QImage const& picture)
{
    return PlotTestPage::inkedPixels(picture) / static_cast<double>(picture.width() * picture.height());
}

/// Pixels in the outermost two rows and columns that are not white.
int inkAtTheEdge(QImage const& picture)
{
    QImage inside = picture;
    QPainter(&inside).fillRect(picture.rect().adjusted(2, 2, -2, -2), Qt::white);
    return PlotTestPage::inkedPixels(inside);
}

} // namespace

TEST(PageViewPicture, HasTheSizeThatIsWantedAndKeepsTheScreenAsItIs)
{
    PlotTestPage page(spaceAndCurves(), {900, 500});
    QImage const screen = page.picture();
    QImage const picture = page.view().takePicture(sized({1500, 1000}, 1.0));
    PlotTestPage::save(picture, "picture-larger-than-the-page");
    EXPECT_EQ(picture.size(), QSize(1500, 1000));
    EXPECT_GT(PlotTestPage::colouredPixels(picture), 2 * PlotTestPage::colouredPixels(page.view().takePicture()));
    EXPECT_LT(PlotTestPage::differingPixels(screen, page.picture()), 100);
}

TEST(PageViewPicture, ShowsTheSameWithMorePixelsAtALargerScale)
{
    PlotTestPage page(spaceAndCurves(), {900, 500});
    QImage const plain = page.view().takePicture(sized({900, 500}, 1.0));
    QImage const fine = page.view().takePicture(sized({900, 500}, 3.0));
    PlotTestPage::save(fine, "picture-at-scale-3");
    ASSERT_EQ(fine.size(), QSize(2700, 1500));
    EXPECT_NEAR(shareOfInk(fine), shareOfInk(plain), 0.1 * shareOfInk(plain)) << "lines and letters grow too";
    QImage const reduced = fine.scaled(plain.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_LT(PlotTestPage::differingPixels(plain, reduced), 900 * 500 / 4);
    EXPECT_GT(PlotTestPage::differingPixels(fine, plain.scaled(fine.size())), 10000) << "with more details";
}

TEST(PageViewPicture, HasNothingBehindThePlotsIfWanted)
{
    PlotTestPage page(spaceAndCurves(), {900, 500});
    PictureOptions options = sized({900, 500}, 1.0);
    QImage const white = page.view().takePicture(options);
    EXPECT_FALSE(white.hasAlphaChannel());
    options.isTransparent = true;
    QImage const clear = page.view().takePicture(options);
    PlotTestPage::save(clear, "picture-transparent");
    ASSERT_TRUE(clear.hasAlphaChannel());
    for (QPoint const& corner : {QPoint(0, 0), QPoint(899, 0), QPoint(0, 499), QPoint(899, 499)})
        EXPECT_EQ(qAlpha(clear.pixel(corner)), 0);
    EXPECT_LE(largestDifference(onWhite(clear), white), 4) << "on white paper it looks like the other one";
    EXPECT_EQ(page.view().takePicture(sized({900, 500}, 1.0)), white);
}

TEST(PageViewPicture, IsFilledByTheActiveFrameAloneIfWanted)
{
    PlotTestPage page(spaceAndCurves(), {900, 500});
    page.session().activateFrame(page.frame(1).id);
    PictureOptions options = sized({900, 500}, 1.0);
    options.activeFrameOnly = true;
    QImage const picture = page.view().takePicture(options);
    PlotTestPage::save(picture, "picture-of-one-frame");
    QImage const left = picture.copy(100, 0, 300, 500);
    EXPECT_GT(PlotTestPage::pixelsNear(left, app::PlotTheme::curve(0), 30), 300);
    page.session().activateFrame(page.frame(0).id);
    EXPECT_EQ(PlotTestPage::pixelsNear(page.view().takePicture(options), app::PlotTheme::curve(1), 10), 0);
}

TEST(PageViewPicture, CutsNoTextAtASmallSizeAndAtTwiceTheScale)
{
    auto const frames = {SampleData::frame("Block", SampleData::block(30, 20, 12), PlotType_Cartesian3D),
                         SampleData::frame("Sheet", SampleData::sheet(41, 31), PlotType_Cartesian2D),
                         SampleData::waveFrame(SampleData::waves(300))};
    for (auto const& frame : frames) {
        PlotTestPage page({frame}, {1200, 900});
        for (double const scale : {1.0, 2.0}) {
            QImage const picture = page.view().takePicture(sized({600, 400}, scale));
            PlotTestPage::save(picture, "picture-600x400-" + frame->name + "-" + std::to_string(scale));
            EXPECT_EQ(inkAtTheEdge(picture), 0) << frame->name << " at scale " << scale;
            EXPECT_GT(shareOfInk(picture), 0.01);
        }
    }
}

TEST(PageViewPicture, OfAViewThatWasMovedShowsThatView)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(41, 31), PlotType_Cartesian2D)}, {900, 500});
    QImage const fitted = page.view().takePicture();
    page.wheel(page.at(0.3, 0.3), 6);
    QImage const screen = page.picture();
    QImage const zoomed = page.view().takePicture();
    EXPECT_GT(PlotTestPage::differingPixels(fitted, zoomed), 20000);
    page.view().takePicture(sized({300, 700}, 2.0));
    EXPECT_EQ(page.view().takePicture(), zoomed) << "pictures of other shapes do not move the view";
    EXPECT_LT(PlotTestPage::differingPixels(screen, page.picture()), 100);
}

TEST(PageViewPicture, CanBePaintedByQtWithLinesAndLetters)
{
    PlotTestPage page(spaceAndCurves(), {900, 500});
    PictureOptions const options = sized({900, 500}, 2.0);
    QImage const pixels = page.view().takePicture(options);
    QImage painted(pixels.size(), QImage::Format_RGB32);
    painted.fill(Qt::white);
    {
        QPainter painter(&painted);
        painter.scale(2.0, 2.0);
        page.view().paintPicture(painter, options);
    }
    PlotTestPage::save(pixels, "picture-in-pixels");
    PlotTestPage::save(painted, "picture-painted");
    EXPECT_NEAR(shareOfInk(painted), shareOfInk(pixels), 0.05 * shareOfInk(pixels));
    EXPECT_EQ(page.view().takePicture(options), pixels) << "nothing stays hidden";
}

TEST(PictureOptions, SaysWhyThereCanBeNoSuchPicture)
{
    EXPECT_EQ(PictureOptions().problem(), QString());
    EXPECT_EQ(sized({600, 400}, 2.0).problem(), QString());
    EXPECT_EQ(sized({16, 16}, 0.1).problem(), QString());
    EXPECT_EQ(sized({15, 400}, 1.0).problem(), QStringLiteral("A picture is at least 16 pixels wide and high."));
    EXPECT_EQ(sized({600, 400}, 0.05).problem(), QStringLiteral("The scale of a picture is between 0.1 and 20."));
    EXPECT_EQ(sized({600, 400}, std::nan("")).problem(),
              QStringLiteral("The scale of a picture is between 0.1 and 20."));
    EXPECT_EQ(sized({600, 400}, 20.1).problem(), QStringLiteral("The scale of a picture is between 0.1 and 20."));
    EXPECT_EQ(sized({8193, 100}, 2.0).problem(),
              QStringLiteral("A picture of 16386 x 200 pixels is too large: it may have 16384 along each side and 64 "
                             "million in all."));
    EXPECT_EQ(sized({8192, 100}, 2.0).problem(), QString());
    EXPECT_EQ(sized({8000, 8000}, 1.0).problem(), QString());
    EXPECT_NE(sized({8000, 8001}, 1.0).problem(), QString());
}

} // namespace veldraw::tests

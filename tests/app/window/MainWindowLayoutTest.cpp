#include "app/window/StatusBar.h"
#include "tests/app/support/WindowTest.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QTest>

#include <algorithm>

namespace veldraw::tests {

namespace {

/// How the window stands on the screen, and what it looks like when it opens.
class LayoutTest : public WindowTest
{
protected:
    LayoutTest() { openFlow(); }

    ~LayoutTest() override
    {
        window.reset();
        QApplication::setFont(m_font);
    }

    void useFontOf(int points)
    {
        QFont font = m_font;
        font.setPointSize(points);
        QApplication::setFont(font);
    }

    app::StatusBar& statusBar() { return *window->findChild<app::StatusBar*>(); }

    void closeAndOpen()
    {
        window->close();
        showWindow();
    }

private:
    QFont const m_font = QApplication::font();
};

} // namespace

TEST_F(LayoutTest, TheWindowFitsTheScreenWithItsFrame)
{
    showWindow();
    QSize const room = window->screen()->availableSize();
    EXPECT_LT(window->width(), room.width());
    EXPECT_LT(window->height(), room.height() - 30) << "a title bar is about that high";
    int const usual = 1360; // however large the screen is
    EXPECT_GE(window->width(), std::min(usual, room.width() * 9 / 10));
}

TEST_F(LayoutTest, AWindowOfALargerScreenIsMadeToFitThisOne)
{
    showWindow();
    window->resize(2000, 1500);
    closeAndOpen();
    QSize const room = window->screen()->availableSize();
    EXPECT_LT(window->width(), room.width());
    EXPECT_LT(window->height(), room.height());
}

TEST_F(LayoutTest, TheWindowCanBeAsSmallAsASmallScreenWithUsualFonts)
{
    showWindow();
    EXPECT_LE(window->minimumSizeHint().width(), 780);
    EXPECT_LE(window->minimumSizeHint().height(), 550);
}

TEST_F(LayoutTest, TheWindowCanBeAsSmallAsALaptopWithLargeFonts)
{
    useFontOf(18);
    showWindow();
    EXPECT_LE(window->minimumSizeHint().width(), 1340);
    EXPECT_LE(window->minimumSizeHint().height(), 700);
}

TEST_F(LayoutTest, TheListsTakeLessThanHalfOfTheWindowHoweverLargeTheFont)
{
    useFontOf(18);
    showWindow();
    EXPECT_LT(window->findChild<QDockWidget*>(QStringLiteral("dataDock"))->width(), window->width() / 2);
}

TEST_F(LayoutTest, PlaceAndListsAreKept)
{
    showWindow();
    window->setGeometry(30, 40, 700, 500);
    auto* splitter = window->findChild<QSplitter*>(QStringLiteral("dataSplitter"));
    splitter->setSizes({100, 120, 200});
    QList<int> const sizes = splitter->sizes();
    window->findChild<QDockWidget*>(QStringLiteral("plotDock"))->raise();
    closeAndOpen();
    EXPECT_EQ(QRect(30, 40, 700, 500), window->geometry());
    splitter = window->findChild<QSplitter*>(QStringLiteral("dataSplitter"));
    EXPECT_EQ(sizes, splitter->sizes());
}

TEST_F(LayoutTest, TheWindowOpensWithAFocusThatIsSeen)
{
    showWindow();
    auto const* const focus = qobject_cast<QAbstractItemView*>(QApplication::focusWidget());
    ASSERT_NE(nullptr, focus);
    EXPECT_EQ(QStringLiteral("frameView"), focus->objectName());
    EXPECT_TRUE(focus->isVisible());
    EXPECT_EQ(0, focus->currentIndex().row());
    EXPECT_TRUE(window->testAttribute(Qt::WA_KeyboardFocusChange)) << "or the style draws no focus";
}

TEST_F(LayoutTest, AMessageEndsBeforeTheCounters)
{
    showWindow();
    window->resize(600, 500);
    settle();
    statusBar().showMessage(QString(300, QLatin1Char('m')));
    auto const* const counters = window->findChild<QLabel*>(QStringLiteral("dataSetStatus"));
    EXPECT_LT(statusBar().messageArea().right(), counters->mapTo(&statusBar(), QPoint(0, 0)).x());
    EXPECT_TRUE(statusBar().shownMessage().endsWith(QString::fromUtf8("…")));
    EXPECT_LE(statusBar().fontMetrics().horizontalAdvance(statusBar().shownMessage()),
              statusBar().messageArea().width());
    EXPECT_EQ(statusBar().currentMessage(), statusBar().toolTip());
}

TEST_F(LayoutTest, AShortMessageIsShownWhole)
{
    showWindow();
    statusBar().showMessage(QStringLiteral("Saved a.csv"));
    EXPECT_EQ(QStringLiteral("Saved a.csv"), statusBar().shownMessage());
}

TEST_F(LayoutTest, MessageAndCountersCanBeRead)
{
    showWindow();
    auto const ink = [&](QRect const& area) {
        QImage const picture = statusBar().grab(area).toImage();
        int dark = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                dark += picture.pixelColor(x, y).lightness() < 100;
        return dark;
    };
    auto const* const counters = window->findChild<QLabel*>(QStringLiteral("dataSetStatus"));
    statusBar().clearMessage();
    EXPECT_EQ(0, ink(statusBar().messageArea()));
    statusBar().showMessage(QStringLiteral("Saved a.csv"));
    EXPECT_GT(ink(statusBar().messageArea()), 50);
    EXPECT_GT(ink(counters->geometry()), 50);
}

} // namespace veldraw::tests

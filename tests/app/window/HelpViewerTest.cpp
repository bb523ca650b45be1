#include "app/window/HelpViewer.h"

#include "platform/vdsdkuicommon/HelpLauncher.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QLineEdit>
#include <QTest>
#include <QTextBrowser>

namespace veldraw::tests {

namespace {

class HelpViewerTest : public WindowTest
{
protected:
    HelpViewerTest()
    {
        writeFile(QStringLiteral("smooth.html"), "<html><head><title>Smooth</title></head><body><p>About smoothing. "
                                                 "<a href=\"krig.html\">Kriging</a></p></body></html>");
        writeFile(QStringLiteral("krig.html"),
                  "<html><head><title>Kriging</title></head><body><p>About kriging.</p></body></html>");
    }

    static QString text(app::HelpViewer& viewer) { return viewer.findChild<QTextBrowser*>()->toPlainText(); }

    static QAction& actionOf(app::HelpViewer& viewer, char const* name)
    {
        return *viewer.findChild<QAction*>(QString::fromLatin1(name));
    }
};

} // namespace

TEST_F(HelpViewerTest, ShowsATopicInAWindowOfItsOwn)
{
    app::HelpViewer viewer({folder.path()});
    viewer.openTopic(QStringLiteral("smooth.html"));
    EXPECT_TRUE(viewer.isVisible());
    EXPECT_FALSE(viewer.isModal());
    EXPECT_TRUE(text(viewer).contains(QStringLiteral("About smoothing.")));
    EXPECT_EQ(QStringLiteral("Help: Smooth"), viewer.windowTitle());
}

TEST_F(HelpViewerTest, GoesBackAndForward)
{
    app::HelpViewer viewer({folder.path()});
    viewer.openTopic(QStringLiteral("smooth.html"));
    EXPECT_FALSE(actionOf(viewer, "helpBackAction").isEnabled());
    viewer.openTopic(QStringLiteral("krig.html"));
    actionOf(viewer, "helpBackAction").trigger();
    EXPECT_TRUE(text(viewer).contains(QStringLiteral("About smoothing.")));
    EXPECT_EQ(QStringLiteral("Help: Smooth"), viewer.windowTitle());
    actionOf(viewer, "helpForwardAction").trigger();
    EXPECT_TRUE(text(viewer).contains(QStringLiteral("About kriging.")));
}

TEST_F(HelpViewerTest, TheIndexListsTheTitlesOfAllTopics)
{
    app::HelpViewer viewer({folder.path()});
    viewer.openIndex();
    EXPECT_TRUE(text(viewer).contains(QStringLiteral("Kriging")));
    EXPECT_TRUE(text(viewer).contains(QStringLiteral("Smooth")));
}

TEST_F(HelpViewerTest, AnIndexPageOfItsOwnWins)
{
    writeFile(QStringLiteral("index.html"), "<html><body>Welcome</body></html>");
    app::HelpViewer viewer({folder.path()});
    viewer.openIndex();
    EXPECT_EQ(QStringLiteral("Welcome"), text(viewer).trimmed());
}

TEST_F(HelpViewerTest, AMissingTopicIsToldInWords)
{
    app::HelpViewer viewer({folder.path()});
    viewer.openTopic(QStringLiteral("<b>gone.html"));
    EXPECT_TRUE(text(viewer).contains(QStringLiteral("There is no help topic called <b>gone.html.")));
    EXPECT_TRUE(text(viewer).contains(folder.path()));
}

TEST_F(HelpViewerTest, WithoutAnyFolderItStillSpeaks)
{
    app::HelpViewer viewer({});
    viewer.openIndex();
    EXPECT_TRUE(text(viewer).contains(QStringLiteral("No help topics are installed.")));
    viewer.openTopic(QStringLiteral("smooth.html"));
    EXPECT_TRUE(text(viewer).contains(QStringLiteral("smooth.html")));
}

TEST_F(HelpViewerTest, SearchesForWords)
{
    app::HelpViewer viewer({folder.path()});
    viewer.openIndex();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&viewer));
    actionOf(viewer, "helpSearchAction").trigger();
    QTest::keyClicks(viewer.focusWidget(), QStringLiteral("ABOUT krig"));
    QTest::keyClick(viewer.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(text(viewer).contains(QStringLiteral("Kriging"))) << text(viewer).toStdString();
    EXPECT_TRUE(text(viewer).contains(QStringLiteral("About kriging.")));
    EXPECT_EQ(QStringLiteral("Help: Search"), viewer.windowTitle());
}

TEST_F(HelpViewerTest, AResultLeadsToItsTopicWithTheWordsMarkedAndBackAgain)
{
    app::HelpViewer viewer({folder.path()});
    viewer.openIndex();
    auto& field = *viewer.findChild<QLineEdit*>();
    auto& browser = *viewer.findChild<QTextBrowser*>();
    field.setText(QStringLiteral("smoothing"));
    QTest::keyClick(&field, Qt::Key_Return);
    QString const results = text(viewer);
    browser.setSource(QUrl::fromLocalFile(folder.filePath(QStringLiteral("smooth.html"))));
    ASSERT_EQ(1, browser.extraSelections().size());
    EXPECT_EQ(QStringLiteral("smoothing"), browser.extraSelections().front().cursor.selectedText());
    actionOf(viewer, "helpBackAction").trigger();
    EXPECT_EQ(results, text(viewer));
    field.clear();
    actionOf(viewer, "helpForwardAction").trigger();
    EXPECT_TRUE(browser.extraSelections().isEmpty());
}

TEST_F(HelpViewerTest, ATopicThatADialogAsksForHasNoMarksOfAnEarlierSearch)
{
    app::HelpViewer viewer({folder.path()});
    viewer.openIndex();
    auto& field = *viewer.findChild<QLineEdit*>();
    field.setText(QStringLiteral("smoothing"));
    QTest::keyClick(&field, Qt::Key_Return);
    viewer.openTopic(QStringLiteral("smooth.html"));
    EXPECT_TRUE(viewer.findChild<QTextBrowser*>()->extraSelections().isEmpty());
    EXPECT_TRUE(field.text().isEmpty());
}

TEST_F(HelpViewerTest, EscapeClosesIt)
{
    app::HelpViewer viewer({folder.path()});
    viewer.openTopic(QStringLiteral("smooth.html"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&viewer));
    QTest::keyClick(&viewer, Qt::Key_Escape);
    EXPECT_FALSE(viewer.isVisible());
}

TEST_F(HelpViewerTest, TheDialogsReachItThroughTheLauncher)
{
    showWindow();
    sdk::ui::common::HelpLauncher::open("no_such_topic.html");
    EXPECT_TRUE(window->helpViewer().isVisible());
    EXPECT_TRUE(text(window->helpViewer()).contains(QStringLiteral("no_such_topic.html")));
}

TEST_F(HelpViewerTest, F1OpensTheContents)
{
    showWindow();
    QTest::keyClick(window.get(), Qt::Key_F1);
    EXPECT_TRUE(window->helpViewer().isVisible());
    EXPECT_FALSE(text(window->helpViewer()).isEmpty());
}

} // namespace veldraw::tests

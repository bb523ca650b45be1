#include "app/window/RecentFiles.h"

#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QMenu>

namespace veldraw::tests {

namespace {

class RecentFilesTest : public WindowTest
{
protected:
    QMenu& menu() { return *window->findChild<QMenu*>(QStringLiteral("recentMenu")); }
};

} // namespace

TEST_F(RecentFilesTest, TheNewestStandsFirstAndEachOnce)
{
    app::RecentFiles recent;
    recent.add(QStringLiteral("/a"));
    recent.add(QStringLiteral("/b"));
    recent.add(QStringLiteral("/a"));
    EXPECT_EQ((QStringList{QStringLiteral("/a"), QStringLiteral("/b")}), recent.list());
}

TEST_F(RecentFilesTest, TheOldestGoesAfterTen)
{
    app::RecentFiles recent;
    for (int i = 1; i <= 12; ++i)
        recent.add(QStringLiteral("/file%1").arg(i));
    ASSERT_EQ(10, recent.list().size());
    EXPECT_EQ(QStringLiteral("/file12"), recent.list().first());
    EXPECT_EQ(QStringLiteral("/file3"), recent.list().last());
}

TEST_F(RecentFilesTest, AnOpenedFileStandsInTheMenu)
{
    showWindow();
    EXPECT_FALSE(menu().isEnabled());
    QString const path = writeFile(QStringLiteral("a & b.csv"), goodTable());
    window->openFiles({path}, app::DocumentController::Place::FreshPage);
    ASSERT_EQ(1, menu().actions().size());
    EXPECT_EQ(QStringLiteral("&1  a && b.csv"), menu().actions().first()->text());
    session.clear();
    menu().actions().first()->trigger();
    settle();
    ASSERT_NE(nullptr, session.activeFrame());
    EXPECT_EQ("a & b", session.activeFrame()->name);
}

TEST_F(RecentFilesTest, ABadFileIsNotRemembered)
{
    showWindow();
    window->openFiles({writeFile(QStringLiteral("bad.csv"), {})}, app::DocumentController::Place::FreshPage);
    EXPECT_TRUE(app::RecentFiles().list().isEmpty());
}

TEST_F(RecentFilesTest, AMissingFileIsToldAndTakenOffTheList)
{
    app::RecentFiles().add(folder.filePath(QStringLiteral("gone.csv")));
    openFlow();
    showWindow();
    ASSERT_EQ(1, menu().actions().size());
    menu().actions().first()->trigger();
    settle();
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("gone.csv"));
    EXPECT_TRUE(menu().actions().isEmpty());
    EXPECT_TRUE(app::RecentFiles().list().isEmpty());
    EXPECT_EQ("flow", session.activeFrame()->name);
}

} // namespace veldraw::tests

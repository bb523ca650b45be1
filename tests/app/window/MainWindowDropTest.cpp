#include "tests/app/support/WindowTest.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>

namespace veldraw::tests {

namespace {

class DropTest : public WindowTest
{
protected:
    // Drags @p urls over the window and lets go. @return whether the window took them
    bool drop(QList<QUrl> const& urls, Qt::KeyboardModifiers modifiers = {})
    {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, modifiers);
        enter.ignore();
        QApplication::sendEvent(window.get(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(window.get(), &event);
        bool const isTaken = event.isAccepted();
        settle();
        return isTaken;
    }

    QUrl table(QString const& name) { return QUrl::fromLocalFile(writeFile(name, goodTable())); }

    std::string frames()
    {
        std::string names;
        for (auto const& frame : session.activePage()->frames)
            names += frame->name + " ";
        return names;
    }
};

} // namespace

TEST_F(DropTest, FilesGetAFreshPage)
{
    openFlow();
    showWindow();
    EXPECT_TRUE(drop({table(QStringLiteral("a.csv")), table(QStringLiteral("b.csv"))}));
    EXPECT_EQ("a b ", frames());
}

TEST_F(DropTest, WithShiftTheyJoinThePage)
{
    openFlow();
    showWindow();
    EXPECT_TRUE(drop({table(QStringLiteral("a.csv"))}, Qt::ShiftModifier));
    EXPECT_EQ("flow a ", frames());
}

TEST_F(DropTest, WhatIsNoFileIsNotTaken)
{
    openFlow();
    showWindow();
    EXPECT_FALSE(drop({QUrl(QStringLiteral("https://example.org/a.csv"))}));
    EXPECT_FALSE(drop({}));
    EXPECT_EQ("flow ", frames());
}

TEST_F(DropTest, ABadFileIsTold)
{
    openFlow();
    showWindow();
    EXPECT_TRUE(drop({QUrl::fromLocalFile(writeFile(QStringLiteral("bad.vtk"), "rubbish"))}));
    EXPECT_EQ(1u, messages.size());
    EXPECT_EQ("flow ", frames());
}

} // namespace veldraw::tests

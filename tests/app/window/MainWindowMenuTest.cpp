#include "app/window/DataOperation.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <algorithm>
#include <set>

namespace veldraw::tests {

namespace {

class MenuTest : public WindowTest
{
};

QChar mnemonicOf(QString text)
{
    text.remove(QStringLiteral("&&"));
    int const position = text.indexOf(QLatin1Char('&'));
    return position < 0 ? QChar() : text.at(position + 1).toLower();
}

void expectUniqueMnemonics(QList<QAction*> const& actions, std::string const& where)
{
    std::set<QChar> seen;
    for (QAction* action : actions) {
        if (action->isSeparator())
            continue;
        QChar const letter = mnemonicOf(action->text());
        if (!letter.isNull()) {
            EXPECT_TRUE(seen.insert(letter).second) << where << ": " << action->text().toStdString();
        }
        if (action->menu())
            expectUniqueMnemonics(action->menu()->actions(), action->text().toStdString());
    }
}

void collectShortcuts(QList<QAction*> const& actions, std::multiset<QString>& shortcuts)
{
    for (QAction* action : actions) {
        if (!action->shortcut().isEmpty())
            shortcuts.insert(action->shortcut().toString());
        if (action->menu())
            collectShortcuts(action->menu()->actions(), shortcuts);
    }
}

QWidget* visibleDialog(char const* objectName)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->objectName() == QLatin1String(objectName))
            return widget;
    return nullptr;
}

} // namespace

TEST_F(MenuTest, MnemonicsAreUniqueInEveryMenu)
{
    openFlow();
    showWindow();
    expectUniqueMnemonics(window->menuBar()->actions(), "menu bar");
}

TEST_F(MenuTest, EveryEntryOfTheBarAndEveryActionCanBeReachedByKeys)
{
    showWindow();
    for (QAction* entry : window->menuBar()->actions()) {
        EXPECT_FALSE(mnemonicOf(entry->text()).isNull()) << entry->text().toStdString();
        for (QAction* action : entry->menu()->actions())
            if (!action->isSeparator()) {
                EXPECT_FALSE(mnemonicOf(action->text()).isNull()) << action->text().toStdString();
            }
    }
}

TEST_F(MenuTest, NoShortcutStandsForTwoThings)
{
    showWindow();
    std::multiset<QString> shortcuts;
    collectShortcuts(window->menuBar()->actions(), shortcuts);
    EXPECT_GT(shortcuts.size(), 10u);
    for (QString const& shortcut : shortcuts)
        EXPECT_EQ(1u, shortcuts.count(shortcut)) << shortcut.toStdString();
}

TEST_F(MenuTest, WithoutDataOnlyWhatNeedsNoneIsEnabled)
{
    showWindow();
    for (char const* name :
         {"openAction", "openInNewFrameAction", "quitAction", "newFrameAction", "helpContentsAction"})
        EXPECT_TRUE(action(name).isEnabled()) << name;
    for (char const* name :
         {"saveAsAction", "savePictureAction", "undoAction", "redoAction", "fitAction", "deleteFrameAction",
          "plotType2DAction", "ShowContourAction", "ShowMeshAction", "StretchAction", "deleteVariableAction"})
        EXPECT_FALSE(action(name).isEnabled()) << name;
}

TEST_F(MenuTest, DataEnablesWhatNeedsSome)
{
    showWindow();
    openFlow();
    for (char const* name : {"saveAsAction", "savePictureAction", "fitAction", "deleteFrameAction", "plotType2DAction",
                             "ShowContourAction", "ShowMeshAction", "StretchAction", "deleteVariableAction"})
        EXPECT_TRUE(action(name).isEnabled()) << name;
}

TEST_F(MenuTest, LayersBelongToFieldPlots)
{
    openFrames({{"series", makeSeries()}});
    showWindow();
    EXPECT_TRUE(action("plotTypeLineAction").isChecked());
    EXPECT_FALSE(action("ShowContourAction").isEnabled());
    EXPECT_FALSE(action("ShowMeshAction").isEnabled());
    EXPECT_FALSE(action("StretchAction").isEnabled());
}

TEST_F(MenuTest, ADataOperationFollowsItsRule)
{
    showWindow();
    EXPECT_FALSE(action("deleteVariableAction").isEnabled());
    openFlow();
    EXPECT_TRUE(action("deleteVariableAction").isEnabled());
    session.clear();
    settle();
    EXPECT_FALSE(action("deleteVariableAction").isEnabled());
}

TEST_F(MenuTest, TheDataMenuIsTheTableOfOperations)
{
    showWindow();
    auto* const menu = window->findChild<QMenu*>(QStringLiteral("dataMenu"));
    ASSERT_EQ(static_cast<int>(app::dataOperations().size()), menu->actions().size());
    for (int i = 0; i < menu->actions().size(); ++i)
        EXPECT_EQ(QString::fromUtf8(app::dataOperations()[static_cast<std::size_t>(i)].text),
                  menu->actions().at(i)->text());
}

TEST_F(MenuTest, AltDAndALetterOpenTheDialog)
{
    openFlow();
    showWindow();
    QTest::keyClick(window.get(), Qt::Key_D, Qt::AltModifier);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(nullptr, menu);
    EXPECT_EQ(QStringLiteral("dataMenu"), menu->objectName());
    QTest::keyClick(menu, Qt::Key_D);
    settle();
    EXPECT_NE(nullptr, visibleDialog("DeleteVariable"));
}

TEST_F(MenuTest, TheDialogGoesWithTheWindow)
{
    openFlow();
    showWindow();
    action("deleteVariableAction").trigger();
    settle();
    ASSERT_NE(nullptr, visibleDialog("DeleteVariable"));
    window.reset();
    EXPECT_EQ(nullptr, visibleDialog("DeleteVariable"));
}

TEST_F(MenuTest, FitReachesTheView)
{
    openFlow();
    showWindow();
    action("fitAction").trigger();
    EXPECT_EQ(1, fits);
}

TEST_F(MenuTest, NewFrameAddsAnActiveFrameAndDeleteTakesItAway)
{
    openFlow();
    showWindow();
    action("newFrameAction").trigger();
    settle();
    ASSERT_EQ(2u, session.activePage()->frames.size());
    EXPECT_EQ("Frame 2", session.activeFrame()->name);
    action("deleteFrameAction").trigger();
    settle();
    EXPECT_EQ(1u, session.activePage()->frames.size());
}

TEST_F(MenuTest, NewFrameShowsTheDataOfTheActiveFrame)
{
    openFrames({{"flow", makeFlow()}, {"series", makeSeries()}});
    showWindow();
    QTest::keyClick(window.get(), Qt::Key_F6);
    settle();
    action("newFrameAction").trigger();
    auto const& frames = session.activePage()->frames;
    ASSERT_EQ(3u, frames.size());
    EXPECT_EQ(frames[1]->dataSet, session.activeFrame()->dataSet);
    EXPECT_EQ(PlotType_XYLine, session.activeFrame()->plotType) << "laid out";
    EXPECT_FALSE(session.activeFrame()->lineMaps.empty());
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(2u, session.activePage()->frames.size());
}

TEST_F(MenuTest, NewFrameWithOffersWhatIsOpenAndNoDataSet)
{
    openFrames({{"flow", makeFlow()}, {"series", makeSeries()}, {"again", nullptr}});
    session.setFrameDataSet(session.activePage()->frames[2]->id, session.activePage()->frames[0]->dataSet);
    auto const flow = session.activePage()->frames[0]->dataSet;
    ASSERT_TRUE(session.perform(kernel::SetTitle(*flow, "a & b")));
    showWindow();
    QList<QAction*> const entries = window->findChild<QMenu*>(QStringLiteral("frameMenu"))->actions();
    auto const entry =
        std::find_if(entries.begin(), entries.end(), [](QAction* each) { return each->menu() != nullptr; });
    ASSERT_NE(entries.end(), entry);
    QMenu* const menu = (*entry)->menu();
    auto const choose = [&](QString const& text) {
        Q_EMIT menu->aboutToShow();
        for (QAction* const each : menu->actions())
            if (each->text() == text)
                return each->trigger();
        ADD_FAILURE() << text.toStdString();
    };
    choose(QStringLiteral("a && b"));
    EXPECT_EQ(flow, session.activeFrame()->dataSet);
    choose(QStringLiteral("&No Data Set"));
    EXPECT_EQ(nullptr, session.activeFrame()->dataSet);
    settle();
    EXPECT_FALSE(action("saveAsAction").isEnabled());
    EXPECT_EQ(5u, session.activePage()->frames.size());
    EXPECT_EQ(4, menu->actions().size()) << "each data set once, a line, and none";
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    choose(QStringLiteral("&No Data Set"));
    EXPECT_EQ(5u, session.activePage()->frames.size());
}

TEST_F(MenuTest, F6GoesRoundTheFrames)
{
    openFrames({{"flow", makeFlow()}, {"series", makeSeries()}});
    showWindow();
    QTest::keyClick(window.get(), Qt::Key_F6);
    settle();
    EXPECT_EQ("series", session.activeFrame()->name);
    QTest::keyClick(window.get(), Qt::Key_F6);
    settle();
    EXPECT_EQ("flow", session.activeFrame()->name);
}

TEST_F(MenuTest, PlotTypeIsChosenInTheMenuAndFollowsTheSession)
{
    openFlow();
    showWindow();
    EXPECT_TRUE(action("plotType2DAction").isChecked());
    action("plotType3DAction").trigger();
    settle();
    EXPECT_EQ(PlotType_Cartesian3D, session.activeFrame()->plotType);
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_XYLine));
    settle();
    EXPECT_TRUE(action("plotTypeLineAction").isChecked());
}

TEST_F(MenuTest, LayersAreSwitchedAndFollowTheSession)
{
    openFlow();
    showWindow();
    bool const hadMesh = session.activeFrame()->showMesh;
    action("ShowMeshAction").trigger();
    settle();
    EXPECT_EQ(!hadMesh, session.activeFrame()->showMesh);
    session.perform(kernel::SetPlotOption(session.activeFrame()->id, &kernel::Frame::showContour, false));
    settle();
    EXPECT_FALSE(action("ShowContourAction").isChecked());
}

TEST_F(MenuTest, EveryPlotOptionWithATextHasItsItem)
{
    openFlow();
    showWindow();
    for (kernel::PlotOption const& option : kernel::plotOptions()) {
        if (*option.text == '\0')
            continue;
        bool const isOfLines = option.plots == kernel::PlotOption::Plots::Lines;
        session.perform(
            kernel::SetPlotType(session.activeFrame()->id, isOfLines ? PlotType_XYLine : PlotType_Cartesian3D));
        settle();
        QAction& item = action((QByteArray(option.value) + "Action").constData());
        EXPECT_EQ(item.text(), QString::fromLatin1(option.text));
        EXPECT_EQ(item.icon().isNull(), *option.icon == '\0') << option.value;
        bool const wasOn = (*session.activeFrame()).*option.member;
        EXPECT_EQ(item.isChecked(), wasOn) << option.value;
        item.trigger();
        settle();
        EXPECT_EQ((*session.activeFrame()).*option.member, !wasOn) << option.value;
        EXPECT_EQ(item.isChecked(), !wasOn) << option.value;
    }
}

TEST_F(MenuTest, TheAxesAreStretchedAndTheCheckFollowsTheSession)
{
    openFlow();
    showWindow();
    EXPECT_FALSE(action("StretchAction").isChecked());
    action("StretchAction").trigger();
    settle();
    EXPECT_TRUE(session.activeFrame()->stretchAxes);
    EXPECT_TRUE(action("StretchAction").isChecked());
    action("undoAction").trigger();
    settle();
    EXPECT_FALSE(session.activeFrame()->stretchAxes);
    EXPECT_FALSE(action("StretchAction").isChecked());
}

TEST_F(MenuTest, KeysMoveTheFocusToTheLists)
{
    openFlow();
    showWindow();
    for (auto const& [key, name] : std::vector<std::pair<Qt::Key, char const*>>{{Qt::Key_1, "frameView"},
                                                                                {Qt::Key_2, "zoneView"},
                                                                                {Qt::Key_3, "variableView"},
                                                                                {Qt::Key_4, "assignmentX"},
                                                                                {Qt::Key_5, "messageView"}}) {
        QTest::keyClick(window.get(), key, Qt::ControlModifier);
        settle();
        ASSERT_NE(nullptr, QApplication::focusWidget()) << name;
        EXPECT_EQ(QString::fromLatin1(name), QApplication::focusWidget()->objectName());
    }
}

} // namespace veldraw::tests

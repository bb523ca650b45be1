#include "app/window/PageMenu.h"

#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>

namespace veldraw::tests {

using testing::Contains;
using testing::IsSupersetOf;
using testing::Not;

namespace {

class PageMenuTest : public WindowTest
{
protected:
    void SetUp() override
    {
        openFlow();
        showWindow();
    }

    app::CentralView makeView() override
    {
        app::CentralView view = WindowTest::makeView();
        view.onMenu = [this](auto const& function) { ask = function; };
        view.onMaximized = [this](auto const& function) { tellMaximized = function; };
        view.maximizeFrame = [this](bool isOn) { wanted.push_back(isOn); };
        return view;
    }

    app::PageMenu& menu(int zone)
    {
        ask(window->mapToGlobal({200, 200}), zone);
        auto* const shown = qobject_cast<app::PageMenu*>(QApplication::activePopupWidget());
        EXPECT_NE(shown, nullptr);
        return *shown;
    }

    static std::vector<std::string> names(QMenu const& menu)
    {
        std::vector<std::string> result;
        for (QAction const* const action : menu.actions())
            result.push_back(action->objectName().toStdString());
        return result;
    }

    std::function<void(QPoint const&, int)> ask;
    std::function<void(bool)> tellMaximized;
    std::vector<bool> wanted;
};

} // namespace

TEST_F(PageMenuTest, LeadsToEverythingThatCanBeDoneWithThePlot)
{
    app::PageMenu& shown = menu(0);
    EXPECT_THAT(names(shown), IsSupersetOf({"fitAction", "copyPictureAction", "savePictureAction"}));
    EXPECT_THAT(names(shown), Not(Contains("disableZoneAction")));
    std::vector<std::string> submenus;
    for (QAction* const action : shown.actions())
        if (action->menu())
            submenus.push_back(action->menu()->objectName().toStdString());
    EXPECT_EQ(submenus, (std::vector<std::string>{"lookFromMenu", "plotMenu", "frameMenu"}));
    QTest::keyClick(&shown, Qt::Key_Escape);
    settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // no event loop runs that would
    EXPECT_EQ(window->findChild<app::PageMenu*>(), nullptr);
}

TEST_F(PageMenuTest, DisablesTheZoneUnderTheMouse)
{
    app::PageMenu& shown = menu(2);
    EXPECT_EQ(shown.actions().front()->text(), QStringLiteral("Zone 2: outlet"));
    EXPECT_FALSE(shown.actions().front()->isEnabled());
    QTest::keyClick(&shown, Qt::Key_D);
    settle();
    EXPECT_EQ(session.activeDataSet()->enabledZones(), (kernel::NumberSet{1}));
    EXPECT_EQ(session.history().undoName(), "Disable Zone");
}

TEST_F(PageMenuTest, LeavesTheZoneWhereItIsGone)
{
    app::PageMenu& shown = menu(2);
    session.openPage({});
    QTest::keyClick(&shown, Qt::Key_D);
    settle();
    EXPECT_FALSE(session.history().canUndo());
    EXPECT_TRUE(messages.empty());
}

TEST_F(PageMenuTest, MaximizesTheActiveFrameByTheMenuAndFollowsThePage)
{
    QTest::keyClick(window.get(), Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(wanted, std::vector<bool>{true});
    EXPECT_TRUE(action("maximizeFrameAction").isChecked());
    tellMaximized(false);
    EXPECT_FALSE(action("maximizeFrameAction").isChecked());
}

} // namespace veldraw::tests

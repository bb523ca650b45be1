#include "app/window/ViewMenu.h"

#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QStatusBar>
#include <QTest>

#include <gmock/gmock.h>

namespace veldraw::tests {

using app::ViewStep;
using testing::ElementsAre;

namespace {

class ViewMenuTest : public WindowTest
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
        view.goToView = [this](ViewStep step) {
            done.push_back(step == ViewStep::Back ? "back" : "on");
            return isPossible;
        };
        view.copyView = [this] { return note("copy"); };
        view.pasteView = [this] { return note("paste"); };
        view.linkViews = [this](bool isOn) { note(isOn ? "link" : "part"); };
        view.rememberView = [this] { return note("remember") ? ++remembered : 0; };
        view.recallView = [this](int number) { return note("recall " + std::to_string(number)); };
        return view;
    }

    bool note(std::string const& what)
    {
        done.push_back(what);
        return isPossible;
    }

    void press(int key, Qt::KeyboardModifiers modifiers)
    {
        QTest::keyClick(window.get(), static_cast<Qt::Key>(key), modifiers);
    }

    std::vector<std::string> done;
    bool isPossible = true;
    int remembered = 0;
};

constexpr auto ctrlAlt = Qt::ControlModifier | Qt::AltModifier;

} // namespace

TEST_F(ViewMenuTest, KeysGoBackAndOnAndCopyAndPaste)
{
    press(Qt::Key_Left, Qt::AltModifier);
    press(Qt::Key_Right, Qt::AltModifier);
    press(Qt::Key_C, ctrlAlt);
    press(Qt::Key_V, ctrlAlt);
    EXPECT_THAT(done, ElementsAre("back", "on", "copy", "paste"));
}

TEST_F(ViewMenuTest, WhatIsImpossibleIsTold)
{
    isPossible = false;
    struct Case
    {
        char const* name;
        char const* told;
    };
    for (Case const& command : {Case{"previousViewAction", "There is no earlier view of this plot"},
                                Case{"nextViewAction", "There is no later view of this plot"},
                                Case{"copyViewAction", "There is no view to copy"},
                                Case{"pasteViewAction", "No view of a plot of this kind was copied"},
                                Case{"rememberViewAction", "No more views can be remembered"}}) {
        action(command.name).trigger();
        EXPECT_EQ(command.told, window->statusBar()->currentMessage().toStdString());
    }
}

TEST_F(ViewMenuTest, ARememberedViewGetsAnEntryAndAKey)
{
    action("rememberViewAction").trigger();
    EXPECT_EQ("Ctrl+Alt+1 goes back to this view", window->statusBar()->currentMessage().toStdString());
    action("rememberViewAction").trigger();
    EXPECT_EQ("View &2", action("recallView2Action").text().toStdString());
    press(Qt::Key_2, ctrlAlt);
    press(Qt::Key_1, ctrlAlt);
    EXPECT_THAT(done, ElementsAre("remember", "remember", "recall 2", "recall 1"));
    isPossible = false;
    press(Qt::Key_1, ctrlAlt);
    EXPECT_EQ("View 1 is one of another kind of plot", window->statusBar()->currentMessage().toStdString());
}

TEST_F(ViewMenuTest, ViewsAreLinkedAndParted)
{
    action("linkViewsAction").trigger();
    action("linkViewsAction").trigger();
    EXPECT_THAT(done, ElementsAre("link", "part"));
}

TEST_F(ViewMenuTest, ALinePlotHasNone)
{
    ASSERT_TRUE(session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_XYLine)));
    settle();
    for (char const* name : {"previousViewAction", "copyViewAction", "pasteViewAction", "rememberViewAction"})
        EXPECT_FALSE(action(name).isEnabled()) << name;
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(done.empty());
}

} // namespace veldraw::tests

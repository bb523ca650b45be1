#include "app/window/DataOperation.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "tests/app/support/WindowTest.h"
#include "tests/app/window/StormKernel.h"
#include "tests/app/window/StormUser.h"
#include "tests/support/EventLoopWatchdog.h"
#include "tests/support/KernelSpy.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QTreeView>

#include <cstdlib>
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace veldraw::tests {

namespace {

int fromEnvironment(char const* name, int usual)
{
    char const* const text = std::getenv(name);
    return text ? std::atoi(text) : usual;
}

/// Names of a data set's enabled things as lists of dialogs show them.
template <typename Things>
QStringList listed(Things const& things)
{
    QStringList texts;
    for (std::size_t at = 0; at < things.size(); ++at)
        if (things[at]->enabled)
            texts << QStringLiteral("%1: %2").arg(at + 1).arg(QString::fromStdString(things[at]->name));
    return texts;
}

QStringList rowsOf(QAbstractItemModel const& model)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts << model.index(row, 0).data().toString();
    return texts;
}

/// All dialogs over the main window, and events of all kinds. VELDRAW_STORM_EVENTS and VELDRAW_STORM_SEED set how many and which.
class MainWindowStormTest : public WindowTest
{
protected:
    MainWindowStormTest()
    {
        std::printf("storm of seed %u\n", m_seed);
        application().setExceptionHandler([this](std::exception const&) { resumeDrawing(); });
        kernelEvents.openPage();
        showWindow();
        user.emplace(dice, *window, static_cast<int>(app::dataOperations().size()),
                     [this](int dialog) { launch(app::dataOperations()[static_cast<std::size_t>(dialog)]); });
        user->launchAll();
        settle();
    }

    ~MainWindowStormTest() override { application().setExceptionHandler({}); }

    static WatchedApplication& application()
    {
        return dynamic_cast<WatchedApplication&>(*QCoreApplication::instance());
    }

    /// As the application does with exceptions of commands.
    void resumeDrawing()
    {
        if (sdk::AppLock::depth() == 0)
            session.setDrawing(true);
    }

    void launch(app::DataOperation const& operation)
    {
        try {
            if (operation.relevance()->isRelevant() && sdk::AppLock::depth() == 0)
                operation.dialog(*window).launch();
        } catch (std::exception const&) {
            resumeDrawing();
        }
    }

    void actOnce()
    {
        dice.below(3) == 0 ? kernelEvents.act() : user->act();
        kernelEvents.keepSmall();
        if (dice.below(4) == 0)
            settle();
    }

    /// What holds whatever fails.
    void expectNothingHeld(int event)
    {
        ASSERT_EQ(sdk::AppLock::depth(), 0) << "event " << event;
        ASSERT_EQ(sdk::WaitState::depth(), 0) << "event " << event;
        messages.clear();
    }

    void expectListsOfTheKernel(int event)
    {
        settle();
        auto const dataSet = session.activeDataSet();
        QStringList const zones = dataSet ? listed(dataSet->zones()) : QStringList();
        QStringList const variables = dataSet ? listed(dataSet->variables()) : QStringList();
        ASSERT_EQ(shownBy("duplicateZone_Source_MList"), zones) << "event " << event;
        ASSERT_EQ(shownBy("createMirrorZone_Source_MList"), zones) << "event " << event;
        ASSERT_EQ(shownBy("deleteVariable_Select_MList"), variables) << "event " << event;
        ASSERT_EQ(window->findChild<QTreeView*>(QStringLiteral("zoneView"))->model()->rowCount(),
                  dataSet ? dataSet->zoneCount() : 0)
            << "event " << event;
        ASSERT_FALSE(QApplication::overrideCursor()) << "event " << event;
    }

    /// The rows of a list in one of the dialogs.
    QStringList shownBy(char const* list)
    {
        auto const* const view = window->findChild<QAbstractItemView*>(QString::fromLatin1(list));
        return view ? rowsOf(*view->model()) : QStringList{QStringLiteral("there is no such list")};
    }

    int const events = fromEnvironment("VELDRAW_STORM_EVENTS", 20000);

private:
    unsigned const m_seed = static_cast<unsigned>(fromEnvironment("VELDRAW_STORM_SEED", 1));

protected:
    StormDice dice{m_seed};
    StormKernel kernelEvents{session, dice};
    std::optional<StormUser> user;
};

/// Ends the search for leaks. Qt is compiled without clean-up: a frame of Qt that an exception leaves loses its texts and guards.
class LossesOfQt
{
#if defined(__SANITIZE_ADDRESS__)
protected:
    LossesOfQt() { __lsan_disable(); }
    ~LossesOfQt() { __lsan_enable(); }
#endif
};

/// The same while kernel calls fail, whose exceptions pass through frames of Qt.
class FailingKernelStormTest : LossesOfQt, public MainWindowStormTest
{};

} // namespace

TEST_F(MainWindowStormTest, ListsAreTheKernelsAndNothingStaysHeldInAStorm)
{
    for (int event = 1; event <= events / 2 && !HasFatalFailure(); ++event) {
        actOnce();
        expectNothingHeld(event);
        if (event % 25 == 0)
            expectListsOfTheKernel(event);
    }
}

// Lists may be wrong while questions fail, until the kernel tells of a change.
TEST_F(FailingKernelStormTest, NothingStaysHeldAndListsAreRightAgain)
{
    for (int event = 1; event <= events / 2 && !HasFatalFailure(); ++event) {
        {
            KernelSpy spy;
            if (dice.below(3) == 0)
                dice.below(4) == 0 ? spy.failFrom(dice.oneOf(40)) : spy.failCall(dice.oneOf(40));
            actOnce();
        }
        expectNothingHeld(event);
        if (event % 25 == 0) {
            kernelEvents.openPage();
            expectListsOfTheKernel(event);
        }
    }
}

} // namespace veldraw::tests

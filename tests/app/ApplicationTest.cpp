#include "app/Application.h"

#include "host/MessagePresenter.h"
#include "kernel/session/Session.h"
#include "platform/exception/IOException.h"
#include "platform/exception/InterruptedException.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QEvent>
#include <QThread>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Does on its event what the test says.
class Receiver : public QObject
{
public:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        action();
        return true;
    }

    std::function<void()> action;
};

class ApplicationTest : public testing::Test
{
protected:
    ApplicationTest()
        : m_previous(host::MessagePresenter::install([this](std::string const& text, MessageBoxType_e) {
            told.push_back(text + " (" + host::MessagePresenter::details() + ")");
        }))
    {
    }
    ~ApplicationTest() override { host::MessagePresenter::install(m_previous); }

    /// An event of the loop that does this.
    static void deliver(std::function<void()> action)
    {
        Receiver receiver;
        receiver.action = std::move(action);
        QCoreApplication::postEvent(&receiver, new QEvent(QEvent::User));
        QCoreApplication::sendPostedEvents(&receiver);
    }

    static void refuse() { kernel::Session::instance().refuse("The file has gone."); }

    std::vector<std::string> told;

private:
    host::MessagePresenter::Presenter m_previous;
};

TEST_F(ApplicationTest, TellsWhatAnEventThrowsWithTheKernelsReasonAsDetails)
{
    deliver([] {
        refuse();
        throw IOException("Could not do it.");
    });
    EXPECT_THAT(told, ElementsAre("Could not do it. (The file has gone.)"));
}

TEST_F(ApplicationTest, DrawsAgainAfterAnEventThatSuspendedDrawingAndThrew)
{
    kernel::Session& session = kernel::Session::instance();
    deliver([&] {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        session.setDrawing(false);
        throw IOException("Could not do it.");
    });
    EXPECT_TRUE(session.isDrawing());
}

TEST_F(ApplicationTest, LeavesDrawingSuspendedWhereAnActionStillRuns)
{
    kernel::Session& session = kernel::Session::instance();
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    session.setDrawing(false);
    deliver([] { throw IOException("Could not do it."); });
    EXPECT_FALSE(session.isDrawing());
    session.setDrawing(true);
}

TEST_F(ApplicationTest, GivesNoReasonOfAnEarlierEvent)
{
    deliver(refuse);
    EXPECT_EQ(kernel::Session::instance().lastError(), "The file has gone.") << "for whoever asks later";
    deliver([] { throw IOException("Could not do it."); });
    EXPECT_THAT(told, ElementsAre("Could not do it. ()"));
}

TEST_F(ApplicationTest, GivesTheReasonOfTheEventThatAnotherOneIsDeliveredIn)
{
    deliver([] {
        refuse();
        deliver([] {});
        throw IOException("Could not do it.");
    });
    EXPECT_THAT(told, ElementsAre("Could not do it. (The file has gone.)"));
}

TEST_F(ApplicationTest, IsSilentAboutAnExceptionWithoutText)
{
    deliver([] {
        refuse();
        throw InterruptedException();
    });
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(ApplicationTest, LeavesTheSessionAloneOnOtherThreads)
{
    kernel::Session::instance().setLastError("The file has gone.");
    std::string seen;
    Receiver receiver;
    QThread thread;
    receiver.action = [&seen, &thread] {
        seen = kernel::Session::instance().lastError();
        thread.quit();
    };
    receiver.moveToThread(&thread);
    thread.start();
    QCoreApplication::postEvent(&receiver, new QEvent(QEvent::User));
    thread.wait();
    EXPECT_EQ(seen, "The file has gone.");
}

} // namespace
} // namespace veldraw::tests

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    veldraw::app::Application const application(argc, argv);
    return RUN_ALL_TESTS();
}

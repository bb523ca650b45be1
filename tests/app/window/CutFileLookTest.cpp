#include "app/window/CutFileLook.h"

#include "app/files/FileStamp.h"
#include "app/files/MappedMemory.h"
#include "host/MessagePresenter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"

#include <QTest>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace veldraw::tests {

namespace {

class CutFileLookTest : public WindowTest
{
protected:
    // The first byte of a file that another program cuts off.
    char lookAtCutFile(std::string const& name)
    {
        std::string const path = (folder.path() + QLatin1Char('/')).toStdString() + name;
        std::ofstream(path) << std::string(100000, 'x');
        int const file = app::FileStamp(path).open();
        auto const memory = app::mapFile(file, 0, 100000, path);
        ::close(file);
        std::filesystem::resize_file(path, 0);
        return *static_cast<char const*>(memory.get());
    }

    QTemporaryDir const folder;
};

} // namespace

TEST_F(CutFileLookTest, TellsOnceOfAFileThatAnotherProgramHasCut)
{
    app::CutFileLook const look(5);
    QTest::qWait(20);
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(lookAtCutFile("flow.raw"), '\0');
    EXPECT_TRUE(QTest::qWaitFor([this] { return !messages.empty(); }, 60000));
    QTest::qWait(20);
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_NE(messages[0].find("flow.raw\" short while open here"), std::string::npos) << messages[0];
}

TEST_F(CutFileLookTest, WaitsUntilAnOperationHasEnded)
{
    app::CutFileLook const look(5);
    {
        sdk::AppLock const operation(sdk::AppLock::RecordAsUsual);
        lookAtCutFile("flow.raw");
        QTest::qWait(50);
        EXPECT_TRUE(messages.empty());
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return !messages.empty(); }, 60000));
}

} // namespace veldraw::tests

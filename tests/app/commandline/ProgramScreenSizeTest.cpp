// The program on screens of given sizes, each a virtual one of its own.
#include <QFile>
#include <QProcess>
#include <QRect>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace veldraw::tests {

namespace {

struct Screen
{
    char const* pixels;
    char const* scale;
    QSize logical;
};

std::ostream& operator<<(std::ostream& out, Screen const& screen)
{
    return out << screen.pixels << " at scale " << screen.scale;
}

class ScreenSize : public ::testing::TestWithParam<Screen>
{
protected:
    ScreenSize()
    {
        QFile table(folder.filePath(QStringLiteral("series.csv")));
        EXPECT_TRUE(table.open(QIODevice::WriteOnly));
        table.write("t,v,w\n0,0,5\n1,1,6\n2,4,7\n");
    }

    /// Where the window and its parts stand after the program has opened a file.
    std::map<std::string, QRect> run()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("VELDRAW_VIRTUAL_DISPLAY"), QString::fromLatin1(GetParam().pixels));
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(GetParam().scale));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder.path());
        environment.insert(QStringLiteral("XDG_DATA_HOME"), folder.path()); // where work to be recovered would be
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(VELDRAW_WITH_DISPLAY),
                      {QStringLiteral(VELDRAW_WINDOW_REPORT), folder.filePath(QStringLiteral("series.csv"))});
        EXPECT_TRUE(process.waitForFinished(120000));
        EXPECT_EQ(0, process.exitCode()) << process.readAllStandardError().toStdString();
        std::map<std::string, QRect> places;
        for (QByteArray const& line : process.readAllStandardOutput().split('\n')) {
            QList<QByteArray> const words = line.split(' ');
            if (words.size() == 5)
                places[words[0].toStdString()] =
                    QRect(words[1].toInt(), words[2].toInt(), words[3].toInt(), words[4].toInt());
        }
        return places;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_P(ScreenSize, HoldsTheWholeWindowWithItsDocksAndThePage)
{
    std::map<std::string, QRect> places = run();
    ASSERT_EQ(GetParam().logical, places["screen"].size());
    QRect const window = places["window"];
    EXPECT_TRUE(places["screen"].contains(window)) << window.width() << " x " << window.height();
    int docks = 0;
    for (std::string const dock : {"dataDock", "plotDock", "messageDock"}) {
        QRect const place = places[dock];
        EXPECT_TRUE(window.contains(place)) << dock;
        EXPECT_EQ(place, places[dock + ".seen"]) << dock;
        EXPECT_GE(place.width(), places[dock + ".needed"].width()) << dock;
        EXPECT_GE(place.height(), places[dock + ".needed"].height()) << dock;
        EXPECT_FALSE(place.intersects(places["page"])) << dock;
        docks += place.isEmpty() ? 0 : 1;
    }
    EXPECT_EQ(3, docks);
    for (char const* const part : {"menuBar", "statusBar", "page"})
        EXPECT_TRUE(!places[part].isEmpty() && window.contains(places[part])) << part;
    EXPECT_GT(places["page"].width(), window.width() * 2 / 5);
    EXPECT_GT(places["page"].height(), window.height() * 2 / 5);
}

INSTANTIATE_TEST_SUITE_P(Sizes, ScreenSize,
                         ::testing::Values(Screen{"1366x768", "1", {1366, 768}}, Screen{"1600x1200", "2", {800, 600}}),
                         [](auto const& size) {
                             return std::string(size.param.pixels) + "AtScale" + size.param.scale;
                         });

} // namespace veldraw::tests

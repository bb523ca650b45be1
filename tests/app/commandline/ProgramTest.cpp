#include "tests/app/support/ProgramFixture.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/resource.h>

namespace veldraw::tests {

namespace {

class ProgramTest : public ProgramFixture
{
};

} // namespace

TEST_F(ProgramTest, HelpTellsEveryOption)
{
    Outcome const outcome = run({QStringLiteral("--help")});
    EXPECT_EQ(0, outcome.status);
    for (char const* option : {"--export", "--overwrite", "--delete-variable", "--picture", "--info", "--defer",
                               "--value-memory", "--undo-memory", "--follow-paths", "--version", "--help"})
        EXPECT_TRUE(contains(outcome.out, option)) << option;
    EXPECT_EQ("", outcome.err);
}

TEST_F(ProgramTest, VersionIsOneLine)
{
    Outcome const outcome = run({QStringLiteral("--version")});
    EXPECT_EQ(0, outcome.status);
    EXPECT_EQ(0u, outcome.out.find("veldraw "));
    EXPECT_EQ(outcome.out.size() - 1, outcome.out.find('\n'));
}

TEST_F(ProgramTest, InfoPrintsZonesVariablesAndRanges)
{
    Outcome const outcome = run({table(), QStringLiteral("--info")});
    EXPECT_EQ(0, outcome.status) << outcome.err;
    EXPECT_TRUE(contains(outcome.out, "Zones: 1\n")) << outcome.out;
    EXPECT_TRUE(contains(outcome.out, "ordered 3 x 1 x 1, 3 points, 2 cells\n")) << outcome.out;
    EXPECT_TRUE(contains(outcome.out, "Variables: 3\n")) << outcome.out;
    EXPECT_TRUE(contains(outcome.out, "  2  v  nodal double, 0 to 4\n")) << outcome.out;
}

TEST_F(ProgramTest, InfoCountsWhatIsHiddenAndLeavesItOutOfTheRanges)
{
    // A corner is hidden and its cell with it; the cell at the other end is hidden by a mark of its own, and the corner that no other
    // cell has goes with it.
    QString const file =
        writeFile(QStringLiteral("hidden.vti"),
                  R"(<VTKFile type="ImageData" version="1.0" byte_order="LittleEndian" header_type="UInt64">
<ImageData WholeExtent="0 2 0 2 0 0" Origin="0 0 0" Spacing="1 1 1"><Piece Extent="0 2 0 2 0 0">
<PointData><DataArray type="UInt8" Name="vtkGhostType" format="ascii">2 0 0 0 0 0 0 0 0</DataArray>
<DataArray type="Float32" Name="p" format="ascii">-99 0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8</DataArray></PointData>
<CellData><DataArray type="UInt8" Name="vtkGhostType" format="ascii">0 0 0 32</DataArray></CellData>
</Piece></ImageData></VTKFile>
)");
    Outcome const outcome = run({file, QStringLiteral("--info")});
    EXPECT_EQ(0, outcome.status) << outcome.err;
    EXPECT_TRUE(contains(outcome.out, "9 points, 4 cells (hidden: 2 points, 2 cells)\n")) << outcome.out;
    EXPECT_TRUE(contains(outcome.out, "p  nodal float, 0.1 to 0.7\n")) << outcome.out;
}

TEST_F(ProgramTest, FilesElsewhereAreReadOnlyWhenTheCommandLineSaysSo)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("inner")));
    QString const values = writeFile(QStringLiteral("outer.raw"), QByteArray("\1\2\3", 3));
    QString const file = writeFile(QStringLiteral("inner/image.mhd"), "ObjectType = Image\nNDims = 1\nDimSize = 3\n"
                                                                      "ElementType = MET_UCHAR\nElementDataFile = "
                                                                      "../outer.raw\n");
    Outcome const refused = run({file, QStringLiteral("--info")});
    EXPECT_EQ(1, refused.status);
    EXPECT_EQ("", refused.out);
    EXPECT_EQ("veldraw: Cannot open \"" + file.toStdString() + "\": it names files outside of its folder: \"" +
                  values.toStdString() + "\". They are read with --follow-paths.\n",
              refused.err);
    Outcome const followed = run({QStringLiteral("--follow-paths"), file, QStringLiteral("--info")});
    EXPECT_EQ(0, followed.status) << followed.err;
    EXPECT_TRUE(contains(followed.out, "Value  nodal byte, 1 to 3\n")) << followed.out;
}

TEST_F(ProgramTest, InfoTakesSeveralFiles)
{
    Outcome const outcome =
        run({table(), writeFile(QStringLiteral("other.csv"), "a,b\n1,2\n3,4\n"), QStringLiteral("--info")});
    EXPECT_EQ(0, outcome.status) << outcome.err;
    EXPECT_TRUE(contains(outcome.out, "series.csv"));
    EXPECT_TRUE(contains(outcome.out, "other.csv"));
}

TEST_F(ProgramTest, DeletesVariablesAndSavesTheRest)
{
    QString const out = folder.filePath(QStringLiteral("rest.csv"));
    Outcome const outcome =
        run({table(), QStringLiteral("--delete-variable"), QStringLiteral("v"), QStringLiteral("--export"), out});
    EXPECT_EQ(0, outcome.status) << outcome.err;
    Outcome const info = run({out, QStringLiteral("--info")});
    EXPECT_TRUE(contains(info.out, "Variables: 2\n")) << info.out;
    EXPECT_TRUE(contains(info.out, "  2  w  nodal double, 5 to 7\n")) << info.out;
}

TEST_F(ProgramTest, DeletesSeveralVariablesInOneGo)
{
    Outcome const outcome = run({table(), QStringLiteral("--delete-variable"), QStringLiteral("v"),
                                 QStringLiteral("--delete-variable"), QStringLiteral("t"), QStringLiteral("--info")});
    EXPECT_EQ(0, outcome.status) << outcome.err;
    EXPECT_TRUE(contains(outcome.out, "Variables: 1\n")) << outcome.out;
}

TEST_F(ProgramTest, RefusesToDeleteEveryVariable)
{
    QString const out = folder.filePath(QStringLiteral("rest.csv"));
    QStringList arguments{table(), QStringLiteral("--export"), out};
    for (char const* name : {"t", "v", "w"})
        arguments << QStringLiteral("--delete-variable") << QString::fromLatin1(name);
    Outcome const outcome = run(arguments);
    EXPECT_EQ(1, outcome.status);
    EXPECT_EQ(0u, outcome.err.find("veldraw: "));
    EXPECT_GT(outcome.err.size(), std::string("veldraw: \n").size());
    EXPECT_FALSE(QFile::exists(out));
}

TEST_F(ProgramTest, TellsAVariableThatIsNotThere)
{
    Outcome const outcome = run({table(), QStringLiteral("--delete-variable"), QStringLiteral("speed")});
    EXPECT_EQ(1, outcome.status);
    EXPECT_EQ("veldraw: there is no variable called \"speed\"\n", outcome.err);
}

TEST_F(ProgramTest, TellsAFileThatIsNotThere)
{
    Outcome const outcome = run({folder.filePath(QStringLiteral("gone.csv")), QStringLiteral("--info")});
    EXPECT_EQ(1, outcome.status);
    EXPECT_TRUE(contains(outcome.err, "gone.csv")) << outcome.err;
    EXPECT_EQ("", outcome.out);
}

TEST_F(ProgramTest, OpensTheGoodFilesOfALotAndNamesEachBadOneWithItsReason)
{
    QString const other = writeFile(QStringLiteral("other.csv"), "a,b\n1,2\n3,4\n");
    Outcome const outcome = run({folder.filePath(QStringLiteral("gone.csv")), table(),
                                 writeFile(QStringLiteral("bad.vtu"), "no mesh"), other, QStringLiteral("--info")});
    EXPECT_EQ(1, outcome.status);
    EXPECT_TRUE(contains(outcome.out, "series.csv\n")) << outcome.out;
    EXPECT_TRUE(contains(outcome.out, "\n\nFile: " + other.toStdString() + "\nTitle: other.csv\n")) << outcome.out;
    EXPECT_TRUE(contains(outcome.err, "gone.csv\": there is no such file.\n")) << outcome.err;
    EXPECT_TRUE(contains(outcome.err, "bad.vtu\": it is no VTK XML file")) << outcome.err;
}

TEST_F(ProgramTest, SaysThatNobodyGotWhatItPrinted)
{
    QString const full = QStringLiteral("/dev/full");
    for (QStringList const& arguments :
         {QStringList{table(), QStringLiteral("--info")}, QStringList{QStringLiteral("--help")},
          QStringList{QStringLiteral("--version")}}) {
        Outcome const outcome = run(arguments, full);
        EXPECT_EQ(1, outcome.status) << arguments.back().toStdString();
        EXPECT_EQ("veldraw: the output could not be written: No space left on device\n", outcome.err);
    }
}

TEST_F(ProgramTest, SavesNothingAfterAReportThatGotLost)
{
    QString const out = folder.filePath(QStringLiteral("out.csv"));
    EXPECT_EQ(
        1,
        run({table(), QStringLiteral("--info"), QStringLiteral("--export"), out}, QStringLiteral("/dev/full")).status);
    EXPECT_FALSE(QFile::exists(out));
}

TEST_F(ProgramTest, ReplacesMoreThanTheNamedFileOnlyIfTold)
{
    QString const source = folder.filePath(QStringLiteral("two.vtm"));
    for (char const* zone : {"a", "b"}) {
        Outcome const piece = run(
            {table(), QStringLiteral("--export"), folder.filePath(QString::fromLatin1(zone) + QStringLiteral(".vts"))});
        ASSERT_EQ(0, piece.status) << piece.err;
    }
    writeFile(QStringLiteral("two.vtm"), "<VTKFile type=\"vtkMultiBlockDataSet\"><vtkMultiBlockDataSet>"
                                         "<DataSet index=\"0\" file=\"a.vts\"/><DataSet index=\"1\" file=\"b.vts\"/>"
                                         "</vtkMultiBlockDataSet></VTKFile>");
    QStringList const arguments{source, QStringLiteral("--export"), folder.filePath(QStringLiteral("out.csv"))};
    EXPECT_EQ(0, run(arguments).status);
    Outcome const refused = run(arguments);
    EXPECT_EQ(1, refused.status);
    EXPECT_TRUE(contains(refused.err, "out_tables\" with 2 tables. Give --overwrite to allow that.\n")) << refused.err;
    EXPECT_EQ(0, run(arguments + QStringList{QStringLiteral("--overwrite")}).status);
}

TEST_F(ProgramTest, AFileThatMayNotGrowIsToldLikeAFullDisk)
{
    QStringList const arguments{table(), QStringLiteral("--export"), folder.filePath(QStringLiteral("out.csv"))};
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    rlimit small = before;
    small.rlim_cur = 20;
    ::setrlimit(RLIMIT_FSIZE, &small);
    Outcome const outcome = run(arguments);
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(1, outcome.status);
    EXPECT_TRUE(contains(outcome.err, "out.csv\": it would be larger than a file may be.\n")) << outcome.err;
    EXPECT_FALSE(QFile::exists(arguments.last()));
}

TEST_F(ProgramTest, SaysWhyAPictureCouldNotBeWritten)
{
    QString const path = folder.filePath(QStringLiteral("page.png"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), path));
    Outcome const outcome = run({table(), QStringLiteral("--picture"), path});
    EXPECT_EQ(1, outcome.status);
    EXPECT_TRUE(contains(outcome.err, "page.png: the picture could not be written: ")) << outcome.err;
}

TEST_F(ProgramTest, TellsAFormatThatItCannotWrite)
{
    Outcome const outcome = run({table(), QStringLiteral("--export"), folder.filePath(QStringLiteral("out.xyz"))});
    EXPECT_EQ(1, outcome.status);
    EXPECT_TRUE(contains(outcome.err, "out.xyz")) << outcome.err;
}

TEST_F(ProgramTest, AWrongCommandLineHasAStatusOfItsOwn)
{
    EXPECT_EQ(2, run({QStringLiteral("--nonsense")}).status);
    EXPECT_EQ(2, run({QStringLiteral("--info")}).status);
    EXPECT_EQ(2, run({table(), QStringLiteral("--export")}).status);
    Outcome const outcome = run({table(), table(), QStringLiteral("--export"), QStringLiteral("x.csv")});
    EXPECT_EQ(2, outcome.status);
    EXPECT_TRUE(contains(outcome.err, "--help")) << outcome.err;
}

TEST_F(ProgramTest, SaysThatTheWindowNeedsADisplay)
{
    Outcome const outcome = run({table()});
    EXPECT_EQ(1, outcome.status);
    EXPECT_TRUE(contains(outcome.err, "no display")) << outcome.err;
}

TEST_F(ProgramTest, OpensFilesWithDifficultNames)
{
    QString const path = writeFile(QString::fromUtf8("Größe \"2\" 速度 %1.csv"), "t,v\n0,0\n1,1\n");
    Outcome const outcome = run({path, QStringLiteral("--info")});
    EXPECT_EQ(0, outcome.status) << outcome.err;
    EXPECT_TRUE(contains(outcome.out, path.toStdString())) << outcome.out;
}

TEST_F(ProgramTest, PrintsNumbersWithAPointInEveryLocale)
{
    qputenv("LC_ALL", "de_DE.UTF-8");
    Outcome const outcome =
        run({writeFile(QStringLiteral("half.csv"), "t,v\n0,0.5\n1,1.5\n"), QStringLiteral("--info")});
    qunsetenv("LC_ALL");
    EXPECT_TRUE(contains(outcome.out, "0.5 to 1.5")) << outcome.out;
}

TEST_F(ProgramTest, MakesAPictureOnAVirtualDisplay)
{
    ASSERT_FALSE(QStandardPaths::findExecutable(QStringLiteral("xvfb-run")).isEmpty());
    QString const path = folder.filePath(QStringLiteral("page.png"));
    Outcome const outcome = run({table(), QStringLiteral("--picture"), path});
    EXPECT_EQ(0, outcome.status) << outcome.err;
    QImage const picture(path);
    ASSERT_FALSE(picture.isNull());
    // Something is drawn: a page of one colour has been forgotten by somebody.
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); y += 3)
        for (int x = 0; x < picture.width(); x += 3)
            colours.insert(picture.pixel(x, y));
    EXPECT_GT(colours.size(), 10);
    for (int x = 0; x < 200; ++x)
        for (int y = 0; y < 20; ++y)
            ASSERT_EQ(picture.pixel(x, y), qRgb(255, 255, 255)) << "a border or a header at " << x << ", " << y;
}

} // namespace veldraw::tests

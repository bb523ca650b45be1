#include "operations/KernelOperations.h"

#include "kernel/frames/Page.h"
#include "operations/CommandRunner.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "tests/host/SampleSession.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace veldraw::tests {

using namespace operations;
using kernel::DataSet;

namespace {

/// What operations do to a block of 9 x 7 x 5 points with coordinates, a vector and a scalar, and to a line.
class KernelOperationsTest : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        addZone(*dataSet, "block", 9, 7, 5);
        addZone(*dataSet, "line", 64);
        fill(1, [](double i, double j, double k) { return std::array<double, 7>{i, j, k, -j, i, 0.5, i * i * j + k}; });
        fill(2, [](double i, double, double) { return std::array<double, 7>{i, 0, 0, 0, 1, 0, std::sin(i)}; });
        show(dataSet, PlotType_Cartesian3D);
        for (char const* assignment :
             {"X variable=x", "Y variable=y", "Z variable=z", "U variable=u", "V variable=v", "W variable=w"})
            ASSERT_TRUE(run(std::string("assign-variable to=") + assignment).isDone);
    }

    /// The data as they were at first.
    void startAgain()
    {
        dataSet = makeDataSet({"x", "y", "z", "u", "v", "w", "p"});
        SetUp();
    }

    void fill(int number, std::array<double, 7> (*values)(double, double, double))
    {
        auto const zone = dataSet->zone(number);
        for (std::int64_t point = 0; point < zone->pointCount(); ++point) {
            auto const row =
                values(double(point % zone->i), double(point / zone->i % zone->j), double(point / (zone->i * zone->j)));
            for (std::size_t variable = 0; variable < row.size(); ++variable)
                std::const_pointer_cast<kernel::Buffer>(zone->fields[variable].group()->buffer())
                    ->setValue(point, row[variable]);
        }
    }

    Outcome run(std::string const& text) { return CommandRunner(session(), registry).run(*readCommand(text)); }

    void expectDone(std::string const& text)
    {
        Outcome const outcome = run(text);
        EXPECT_TRUE(outcome.isDone) << text << ": " << outcome.text;
    }

    double value(int zone, std::string const& variable, std::int64_t point) const
    {
        return dataSet->field(zone, dataSet->findVariable(variable))->group()->buffer()->value(point);
    }

    /// All names and values of the data set, bit for bit.
    std::string digest() const
    {
        std::ostringstream text;
        text << dataSet->title() << '\n' << std::hexfloat;
        for (int variable = 1; variable <= dataSet->variableCount(); ++variable)
            text << dataSet->variable(variable)->name << ' ' << dataSet->variable(variable)->enabled << '\n';
        for (int zone = 1; zone <= dataSet->zoneCount(); ++zone) {
            text << dataSet->zone(zone)->name << ' ' << dataSet->zone(zone)->enabled << '\n';
            for (int variable = 1; variable <= dataSet->variableCount(); ++variable)
                write(*dataSet->field(zone, variable), text);
        }
        return text.str();
    }

    static void write(kernel::Field const& field, std::ostream& text)
    {
        std::int64_t const count = field.isPassive() ? 0 : field.group()->buffer()->size();
        for (std::int64_t n = 0; n < count; ++n)
            text << field.group()->buffer()->value(n) << ' ';
        text << '\n';
    }

    std::shared_ptr<DataSet> dataSet = makeDataSet({"x", "y", "z", "u", "v", "w", "p"});
    Registry const registry = kernelOperations();
};

/// All that stands in the sources of the dialogs.
std::string dialogSources()
{
    std::ostringstream all;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(VELDRAW_DIALOGS))
        if (entry.path().extension() == ".cpp")
            all << std::ifstream(entry.path()).rdbuf();
    return all.str();
}

constexpr std::int64_t somewhere = 4 + 9 * (3 + 7 * 2); // i = 4, j = 3, k = 2

} // namespace

TEST_F(KernelOperationsTest, MirrorAtAPlane)
{
    expectDone("mirror-zones zones=block plane=Y");
    ASSERT_EQ(3, dataSet->zoneCount());
    EXPECT_EQ(4, value(3, "x", somewhere));
    EXPECT_EQ(-3, value(3, "y", somewhere));
    EXPECT_EQ(-4, value(3, "v", somewhere));
    EXPECT_EQ(-3, value(3, "u", somewhere));
}

TEST_F(KernelOperationsTest, RotateAboutAnAxisThroughAPoint)
{
    expectDone("rotate-zones zones=1 angle=90 axis=Z origin=1,2,0");
    EXPECT_NEAR(1 - (3 - 2), value(1, "x", somewhere), 1e-12);
    EXPECT_NEAR(2 + (4 - 1), value(1, "y", somewhere), 1e-12);
    EXPECT_NEAR(-4, value(1, "u", somewhere), 1e-12);
    EXPECT_NEAR(-3, value(1, "v", somewhere), 1e-12);
}

TEST_F(KernelOperationsTest, RotateWithoutTheVectorOrWithAnotherOne)
{
    expectDone("rotate-zones zones=1 angle=90 vector=no");
    EXPECT_EQ(-3, value(1, "u", somewhere));
    expectDone("rotate-zones zones=1 angle=90 axis=0,0,2 u=v v=u");
    EXPECT_NEAR(-(-3), value(1, "v", somewhere), 1e-12) << "v was the first component";
    EXPECT_NEAR(4, value(1, "u", somewhere), 1e-12);
}

TEST_F(KernelOperationsTest, RotateInSpaceOrInThePlaneWhateverTheFrameShows)
{
    expectDone("rotate-zones zones=1 angle=90 space=2d");
    EXPECT_NEAR(-3, value(1, "x", somewhere), 1e-12);
    EXPECT_NE(std::string::npos, session().journal().script().find(" space=2d x=1 y=2 u=4 v=5\n"))
        << session().journal().script();
    expectDone("set-plot-type type=2d");
    EXPECT_FALSE(run("rotate-zones zones=1 angle=90 axis=X").isDone) << "out of the plane";
    expectDone("rotate-zones zones=1 angle=90 axis=X space=3d z=z vector=no");
    EXPECT_NEAR(-2, value(1, "y", somewhere), 1e-12);
    EXPECT_NEAR(4, value(1, "z", somewhere), 1e-12);
}

TEST_F(KernelOperationsTest, DuplicateZonesAboutAnAxis)
{
    expectDone("duplicate-zones-axially zones=block angle=90 copies=2 offset=90 axis=X");
    ASSERT_EQ(4, dataSet->zoneCount());
    EXPECT_NEAR(-3, value(3, "y", somewhere), 1e-12) << "copy 1 at 180 degrees";
    EXPECT_NEAR(2, value(4, "y", somewhere), 1e-12) << "copy 2 at 270 degrees";
    EXPECT_NEAR(-3, value(4, "z", somewhere), 1e-12);
}

TEST_F(KernelOperationsTest, DuplicateRenameAndDisable)
{
    expectDone("duplicate-zones zones=block,line");
    expectDone("rename-zone zone=4 name=\"line, again\"");
    EXPECT_EQ("line, again", dataSet->zone(4)->name);
    expectDone("disable-zone zone=\"line, again\"");
    EXPECT_FALSE(dataSet->zone(4)->enabled);
    expectDone("enable-zone zone=4");
    EXPECT_TRUE(dataSet->zone(4)->enabled);
    expectDone("rename-variable variable=p name=pressure");
    expectDone("disable-variable variable=pressure");
    EXPECT_FALSE(dataSet->variable(7)->enabled);
    expectDone("enable-variable variable=pressure");
    EXPECT_TRUE(dataSet->variable(7)->enabled);
}

TEST_F(KernelOperationsTest, DeleteLoadAndSetValues)
{
    expectDone("load-variables variables=p");
    expectDone("set-value zone=block variable=p index=3 value=-7.25");
    EXPECT_EQ(-7.25, value(1, "p", 2));
    expectDone("duplicate-zones zones=block");
    expectDone("set-value zone=3 variable=p index=3 value=1");
    EXPECT_EQ(-7.25, value(1, "p", 2)) << "not shared unless that is said";
    expectDone("set-value zone=3 variable=x index=3 value=99 shared=yes");
    EXPECT_EQ(99, value(1, "x", 2));
    expectDone("delete-variables variables=w,p");
    EXPECT_EQ(5, dataSet->variableCount());
    EXPECT_FALSE(run("set-value zone=1 variable=x index=9999 value=1").isDone);
}

TEST_F(KernelOperationsTest, Interpolate)
{
    expectDone("interpolate-linearly zones=block destination=line variables=p outside=constant constant=-5");
    EXPECT_NEAR(0, value(2, "p", 3), 1e-12);
    EXPECT_EQ(-5, value(2, "p", 20)) << "outside";
    expectDone("interpolate-inverse-distance zones=line destination=block variables=v selection=nearest points=1");
    EXPECT_EQ(1, value(1, "v", somewhere));
    expectDone("krige zones=line destination=block variables=w drift=none selection=all");
    EXPECT_NEAR(0, value(1, "w", somewhere), 1e-9);
}

TEST_F(KernelOperationsTest, ProbeALine)
{
    expectDone("probe-line zones=block from=0,3,2 to=10,3,2 points=11");
    ASSERT_EQ(3, dataSet->zoneCount());
    EXPECT_EQ(11, dataSet->zone(3)->pointCount());
    for (int point = 0; point <= 8; ++point) {
        EXPECT_NEAR(3 * point * point + 2, value(3, "p", point), 1e-12);
        EXPECT_NEAR(point, value(3, "Distance along Line", point), 1e-12);
    }
    EXPECT_TRUE(std::isnan(value(3, "p", 9))) << "beyond the block";
    EXPECT_FALSE(run("probe-line zones=line from=0,3,2 to=10,3,2").isDone);
}

TEST_F(KernelOperationsTest, Smooth)
{
    expectDone("smooth zone=block variable=p coefficient=0.4 boundary=first-order");
    EXPECT_NEAR(50 + 0.4, value(1, "p", somewhere), 1e-12) << "the mean of i^2 j + k at the neighbours is j / 3 more";
    EXPECT_EQ(value(1, "p", 1 + 9 * (3 + 7 * 2)), value(1, "p", 9 * (3 + 7 * 2))) << "the border is the next value";
}

TEST_F(KernelOperationsTest, Triangulate)
{
    expectDone("set-plot-type type=2d");
    expectDone("triangulate zones=block keep-factor=0");
    ASSERT_EQ(3, dataSet->zoneCount());
    EXPECT_EQ(9 * 7, dataSet->zone(3)->pointCount());
    EXPECT_EQ(2 * 8 * 6, dataSet->zone(3)->cellCount());
    EXPECT_FALSE(run("triangulate zones=block boundaries=block").isDone) << "no line";
}

TEST_F(KernelOperationsTest, TransformASignal)
{
    expectDone("fourier-transform zones=line variables=p,x independent=x window=hann");
    ASSERT_EQ(3, dataSet->zoneCount());
    EXPECT_EQ(33, dataSet->zone(3)->pointCount());
    EXPECT_EQ(10, dataSet->variableCount()) << "x is no dependent variable, though it was given";
    expectDone("fourier-transform zones=line variables=p independent=x conjugates=yes replace-zones=no "
               "replace-variables=no");
    EXPECT_EQ(64, dataSet->zone(4)->pointCount());
    EXPECT_EQ(13, dataSet->variableCount());
}

TEST_F(KernelOperationsTest, SetTitleAndAuxiliaryData)
{
    expectDone("set-title title=\"a run\"");
    EXPECT_EQ("a run", dataSet->title());
    expectDone("set-auxiliary-data name=Author value=\"A. N.\"");
    EXPECT_EQ("A. N.", dataSet->auxiliaryData().item(1).value);
    expectDone("set-auxiliary-data name=Part value=7 zone=line");
    EXPECT_EQ("7", dataSet->zone(2)->auxiliaryData.item(1).value);
    expectDone("set-auxiliary-data name=Unit value=Pa variable=p save=no");
    EXPECT_FALSE(dataSet->variable(7)->auxiliaryData.item(1).retain);
    expectDone("set-auxiliary-data name=Note value=x owner=frame");
    EXPECT_EQ(1, session().activeFrame()->auxiliaryData.size());
    expectDone("delete-auxiliary-data name=part zone=line");
    EXPECT_EQ(0, dataSet->zone(2)->auxiliaryData.size());
    Outcome const two = run("set-auxiliary-data name=a value=b zone=1 variable=1");
    EXPECT_FALSE(two.isDone);
    EXPECT_EQ("Auxiliary data have one owner: a zone, a variable, a line map, or what owner says.", two.text);
    EXPECT_FALSE(run("set-auxiliary-data name=9 value=b").isDone);
}

TEST_F(KernelOperationsTest, ChangeWhatAFrameShows)
{
    expectDone("set-contour-variable variable=p");
    EXPECT_EQ(7, VelUtilVarGetNumByAssignment('C'));
    expectDone("assign-variable to=U");
    EXPECT_EQ(0, VelUtilVarGetNumByAssignment('U'));
    expectDone("set-plot-option option=FieldLayers/ShowMesh on=yes");
    EXPECT_TRUE(session().activeFrame()->showMesh);
    expectDone("set-contour-colours min=-1 max=0.5 levels=8 map=cool-to-warm");
    kernel::ContourColours const wanted{true, -1.0, 0.5, 8, kernel::ColourMapKind::CoolToWarm};
    EXPECT_TRUE(session().activeFrame()->contourColours == wanted);
    EXPECT_EQ("A contour has both limits or none.", run("set-contour-colours min=1").text);
    expectDone("set-contour-colours");
    EXPECT_TRUE(session().activeFrame()->contourColours == kernel::ContourColours());
    expectDone("set-solution-time time=2.5");
    EXPECT_EQ(2.5, session().activeFrame()->solutionTime);
    expectDone("set-plot-type type=line");
    expectDone("set-line-plot zone=line x=x y=p");
    EXPECT_EQ(PlotType_XYLine, session().activeFrame()->plotType);
    ASSERT_FALSE(session().activeFrame()->lineMaps.empty());
    expectDone("rename-frame name=\"p over x\"");
    EXPECT_EQ("p over x", session().activeFrame()->name);
    expectDone("new-frame");
    EXPECT_EQ(dataSet, session().activeDataSet());
    EXPECT_EQ(2u, session().activePage()->frames.size());
    expectDone("activate-frame frame=1");
    EXPECT_EQ("p over x", session().activeFrame()->name);
    EXPECT_EQ("There is no such frame.", run("activate-frame frame=3").text);
}

TEST_F(KernelOperationsTest, AreOneStepOfTheHistoryOfTheSameName)
{
    session().history().clear();
    for (std::string const command :
         {"mirror-zones zones=1 plane=X", "rotate-zones zones=1 angle=30", "rename-zone zone=1 name=b",
          "smooth zone=1 variable=p", "set-value zone=1 variable=p index=1 value=5", "set-title title=b",
          "delete-variables variables=w", "set-plot-option option=FieldLayers/ShowContour on=no"}) {
        expectDone(command);
        OperationEntry const& entry = *registry.find(command.substr(0, command.find(' ')));
        bool const isOption = entry.name == "set-plot-option"; // each option has a name of its own
        EXPECT_EQ(isOption ? "Contour" : entry.title, session().history().undoName());
        EXPECT_TRUE(session().undo());
        EXPECT_FALSE(session().history().canUndo()) << command;
    }
}

TEST_F(KernelOperationsTest, AreRecordedAsCommandsThatGiveTheSameBits)
{
    session().journal().clear();
    for (char const* command :
         {"rotate-zones zones=block angle=12.3 axis=1,2,3 origin=0.1,0.2,0.3",
          "interpolate-inverse-distance zones=line destination=block variables=v exponent=3.5 points=5",
          "krige zones=line destination=block variables=w range=0.7 zero-value=0.1 drift=none selection=nearest "
          "points=6",
          "interpolate-linearly zones=block destination=line variables=p outside=constant constant=0.1",
          "smooth zone=block variable=p passes=3 coefficient=0.3 boundary=second-order",
          "mirror-zones zones=* plane=Z",
          "duplicate-zones zones=1:2",
          "duplicate-zones-axially zones=block,line angle=33.3 copies=2 offset=5 axis=X add-to-strands=no vector=no",
          "fourier-transform zones=2 variables=p independent=x window=hamming conjugates=yes",
          "set-value zone=1 variable=p index=17 value=0.1 shared=yes",
          "set-value zone=4 variable=u index=3 value=1e-30",
          "rename-zone zone=1 name=\"a, \\\"b\\\" #1\"",
          "rename-variable variable=p name=q",
          "disable-zone zone=3",
          "disable-variable variable=w",
          "enable-variable variable=w",
          "set-title title=\"one\\ntwo\"",
          "set-auxiliary-data name=A value=\"b c\" zone=2",
          "set-auxiliary-data name=B value=c owner=frame save=no",
          "delete-auxiliary-data name=a zone=2",
          "probe-line zones=1 from=0.1,0.2,0.3 to=7.1,5,30 points=9",
          "new-frame",
          "set-plot-type type=2d",
          "set-contour-variable variable=q",
          "assign-variable to=U",
          "set-plot-option option=FieldLayers/ShowMesh on=yes",
          "set-contour-colours min=-1.5 max=0.1 levels=7 map=inferno",
          "set-value-blanking constraints=\"q < 0.1; 2 > -1e-30 off\"",
          "rename-frame name=\"\"",
          "move-frame x=1 y=1.5 width=3 height=2",
          "triangulate zones=1 keep-factor=0.1",
          "set-plot-type type=line",
          "set-line-plot zone=2 x=x y=q",
          "new-line-map",
          "set-line-maps maps=1:2 name=\"a b\" zone=2 x=q y=x colour=1F6FB5 line=dash-dot width=2.5 symbols=yes "
          "axis=y2",
          "set-line-maps maps=2 show=no colour=automatic symbols=plot",
          "duplicate-line-maps maps=1",
          "set-line-axis axis=y2 min=-1.5 max=0.1 title=\"p (Pa)\"",
          "set-line-axis axis=y2 range=fit",
          "set-plot-title title=\"a b\"",
          "delete-line-maps maps=1",
          "set-solution-time time=0.25",
          "new-frame like=0",
          "set-frame-data like=1",
          "delete-frame",
          "delete-variables variables=w,u"})
        expectDone(command);
    std::string const script = session().journal().script();
    std::string const done = digest();
    EXPECT_EQ(std::string::npos, script.find('#', script.find("#1") + 1)) << "a command for everything: " << script;
    startAgain();
    session().journal().clear();
    std::istringstream lines(script);
    for (std::string line; std::getline(lines, line);)
        expectDone(line);
    EXPECT_EQ(done, digest());
    EXPECT_EQ(script, session().journal().script()) << "what was recorded is recorded alike";
    for (OperationEntry const& entry : registry.entries()) {
        bool const needsNoEntry = entry.name == "activate-frame" || entry.name == "load-variables" ||
                                  entry.name == "enable-zone" || entry.name == "set-contour-variable";
        EXPECT_TRUE(needsNoEntry || script.find(entry.name + ' ') != std::string::npos ||
                    script.find(entry.name + '\n') != std::string::npos)
            << entry.name;
    }
}

TEST_F(KernelOperationsTest, UseTheWordsOfTheDialogs)
{
    std::string const sources = dialogSources();
    int texts = 0;
    for (OperationEntry const& entry : registry.entries()) {
        for (std::string const& text : {entry.failure, entry.success}) {
            bool const isPutTogether = text.rfind("Error renaming the ", 0) == 0;
            if (text.empty() || isPutTogether || entry.name == "new-frame")
                continue;
            EXPECT_NE(std::string::npos, sources.find('"' + text + '"')) << entry.name << ": " << text;
            ++texts;
        }
    }
    EXPECT_LT(15, texts);
}

TEST_F(KernelOperationsTest, AreDescribedInSentences)
{
    for (OperationEntry const& entry : registry.entries()) {
        EXPECT_FALSE(entry.title.empty()) << entry.name;
        EXPECT_EQ('.', entry.sentence.back()) << entry.name;
        for (Parameter const& parameter : entry.parameters) {
            EXPECT_EQ('.', parameter.sentence.back()) << entry.name << ' ' << parameter.name;
            EXPECT_EQ(parameter.kind == ParameterKind::Choice, !parameter.words.empty()) << parameter.name;
            if (!parameter.startValue.empty() && parameter.kind > ParameterKind::Variable) {
                EXPECT_NO_THROW(readArguments({parameter}, *readCommand("c"), nullptr)) << parameter.name;
            }
        }
    }
}

} // namespace veldraw::tests

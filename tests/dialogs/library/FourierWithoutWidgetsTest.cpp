#include "dialogs/fourier/FourierTransformPropertiesManager.h"
#include "host/KernelBridge.h"
#include "kernel/session/Session.h"

#include <QCoreApplication>

#include <cmath>
#include <gmock/gmock.h>
#include <memory>
#include <vector>

namespace veldraw::tests {
namespace {

using sdk::ui::propertymanager::FourierTransformPropertiesManager;
using testing::ElementsAre;

constexpr double fullTurn = 6.283185307179586;
constexpr int pointCount = 4096;
constexpr double step = 1.0 / 1024.0; // seconds

/// A program that has the library and the kernel and shows nothing: time, a signal of two tones on a constant, and their rest.
class FourierWithoutWidgets : public testing::Test
{
protected:
    FourierWithoutWidgets()
    {
        host::KernelBridge::install();
        session.clear();
        for (char const* const name : {"time", "signal", "flat"})
            dataSet->addVariable(std::make_shared<kernel::Variable>(name));
        auto const probe = std::make_shared<kernel::Zone>("Probe", ZoneType_Ordered, pointCount, 1, 1);
        probe->fields = {field([](double time) { return time; }), field(&signal), field([](double) { return 7.0; })};
        dataSet->addZone(probe);
        frame = session.createFrame("Frame 1", kernel::Rectangle{0.0, 0.0, 8.0, 6.0});
        session.setFrameDataSet(frame->id, dataSet);
    }
    ~FourierWithoutWidgets() override { session.clear(); }

    static double signal(double time)
    {
        return 2.0 + 3.0 * std::cos(fullTurn * 50.0 * time) + 0.5 * std::sin(fullTurn * 120.25 * time);
    }

    template <typename Value>
    static kernel::Field field(Value const& value)
    {
        auto buffer = kernel::Buffer::allocate(FieldDataType_Double, pointCount);
        for (int at = 0; at < pointCount; ++at)
            buffer->setValue(at, value(at * step));
        return kernel::Field(std::make_shared<kernel::ShareGroup>(std::move(buffer)), ValueLocation_Nodal);
    }

    /// The values that a line map shows along one of its axes, from the first one on.
    std::vector<double> shown(std::size_t map, kernel::UniqueId kernel::LineMap::*axis) const
    {
        kernel::LineMap const& lineMap = session.activePage()->frames.at(1)->lineMaps.at(map);
        kernel::Field const& values =
            *dataSet->field(dataSet->zoneNumber(lineMap.zone), dataSet->variableNumber(lineMap.*axis));
        std::vector<double> numbers;
        for (std::int64_t at = 0; at < values.group()->buffer()->size(); ++at)
            numbers.push_back(values.group()->buffer()->value(at));
        return numbers;
    }

    kernel::Session& session = kernel::Session::instance();
    std::shared_ptr<kernel::DataSet> const dataSet = std::make_shared<kernel::DataSet>("Run");
    std::shared_ptr<kernel::Frame> frame;
};

TEST_F(FourierWithoutWidgets, TransformASignalIntoTheTonesThatItWasMadeOf)
{
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    ASSERT_TRUE(FourierTransformPropertiesManager::relevance()->isRelevant());
    FourierTransformPropertiesManager const fourier;
    fourier.independentVariable()->setValue(1);
    fourier.dependentVariables()->setValue({2});
    fourier.sourceZones()->setValue({1});
    ASSERT_TRUE(fourier.transformButtonRelevance()->isRelevant());
    ::testing::internal::CaptureStderr();
    fourier.transform();
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    ASSERT_EQ(session.activePage()->frames.size(), 2u);
    std::vector<double> const frequencies = shown(0, &kernel::LineMap::xVariable);
    std::vector<double> const amplitudes = shown(0, &kernel::LineMap::yVariable);
    ASSERT_EQ(frequencies.size(), pointCount / 2 + 1);
    ASSERT_EQ(amplitudes.size(), frequencies.size());
    for (std::size_t at = 0; at < frequencies.size(); ++at) {
        ASSERT_NEAR(frequencies[at], static_cast<double>(at) / (pointCount * step), 1e-9);
        // Steps of a quarter of a hertz: both tones stand on one.
        double const expected = at == 0 ? 2.0 : at == 200 ? 3.0 : at == 481 ? 0.5 : 0.0;
        ASSERT_NEAR(amplitudes[at], expected, 3e-12) << frequencies[at] << " Hz";
    }
    EXPECT_EQ(session.activeFrame(), frame);
}

TEST_F(FourierWithoutWidgets, HearOfPropertiesListsAndRules)
{
    FourierTransformPropertiesManager const fourier;
    std::vector<std::string> heard;
    auto const note = [&heard](char const* what) { return [&heard, what] { heard.emplace_back(what); }; };
    boost::signals2::scoped_connection const first =
        fourier.independentVariable()->connectPropertyChanged(note("independent variable"));
    boost::signals2::scoped_connection const second =
        fourier.transformButtonRelevance()->connectRelevanceChanged(note("rule of the button"));
    boost::signals2::scoped_connection const third =
        fourier.sourceZonesModel()->connectDataChanged(note("list of zones"));
    boost::signals2::scoped_connection const fourth =
        FourierTransformPropertiesManager::relevance()->connectRelevanceChanged(note("rule of the command"));
    boost::signals2::scoped_connection const fifth =
        FourierTransformPropertiesManager::windowFunction()->connectValueChanged(
            [&heard](WindowFunction_e const& window) { heard.push_back("window " + std::to_string(window)); });
    boost::signals2::scoped_connection const sixth =
        FourierTransformPropertiesManager::plotDisplay()->connectValueChanged(
            [&heard](FourierPlotDisplayType_e const& display) { heard.push_back("place " + std::to_string(display)); });
    fourier.independentVariable()->setValue(2);
    EXPECT_THAT(heard, testing::UnorderedElementsAre("rule of the button", "independent variable"));
    heard.clear();
    FourierTransformPropertiesManager::windowFunction()->setValue(WindowFunction_Hann);
    FourierTransformPropertiesManager::plotDisplay()->setValue(FourierPlotDisplayType_Tile);
    EXPECT_THAT(heard, ElementsAre("window 2", "place 1"));
    heard.clear();
    session.clear();
    EXPECT_THAT(heard, testing::IsSupersetOf({"list of zones", "rule of the command"}));
    EXPECT_FALSE(FourierTransformPropertiesManager::relevance()->isRelevant());
    FourierTransformPropertiesManager::windowFunction()->setValue(WindowFunction_Rectangular);
    FourierTransformPropertiesManager::plotDisplay()->setValue(FourierPlotDisplayType_InCorner);
}

TEST_F(FourierWithoutWidgets, ReadTheirChoicesFromTheLists)
{
    FourierTransformPropertiesManager const fourier;
    std::vector<std::string> windows;
    for (int row = 0; row < fourier.windowFunctionModel()->size(); ++row)
        windows.push_back(fourier.windowFunctionModel()->getStr(row));
    EXPECT_THAT(windows, ElementsAre("Rectangular", "Triangular", "Hann", "Hamming"));
    EXPECT_EQ(fourier.plotDisplayModel()->indexOf(FourierPlotDisplayType_Tile), 1);
    EXPECT_EQ(fourier.variableModel()->getStr(1), "2: signal");
    EXPECT_EQ(fourier.sourceZonesModel()->getStr(0), "1: Probe");
}

TEST_F(FourierWithoutWidgets, AreToldAFailureOnStandardError)
{
    FourierTransformPropertiesManager const fourier;
    fourier.independentVariable()->setValue(3); // flat
    fourier.dependentVariables()->setValue({2});
    fourier.sourceZones()->setValue({1});
    ::testing::internal::CaptureStderr();
    fourier.transform();
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "Error: Insufficient resources to perform Fourier transform.\n"
              "  The independent variable \"flat\" is constant in the zone \"Probe\".\n");
    EXPECT_EQ(session.activePage()->frames.size(), 1u);
}

} // namespace
} // namespace veldraw::tests

#include "dialogs/fourier/FourierTransformDialog.h"

#include "kernel/operations/AddFrame.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "tests/dialogs/fourier/FourierFixture.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"

#include <QComboBox>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using FourierTransformDialogTest = FourierFixture;

TEST_F(FourierTransformDialogTest, LooksAsItsFormSays)
{
    EXPECT_EQ(dialog().size(), QSize(408, 395));
    EXPECT_EQ(dialog().objectName(), QStringLiteral("FourierTransform"));
    EXPECT_THAT(formTable(launched()),
                testing::UnorderedElementsAre(
                    "FourierTransform | veldraw::dialogs::common::QtDialogAbstract | Discrete Fourier Transform |  | ",
                    "independentVariablesLabel | QLabel | &Independent variable: |  | independentVariablesComboBox",
                    "independentVariablesComboBox | QComboBox |  |  | ",
                    "dependentVariablesLabel | QLabel | &Dependent variables |  | dependentVariablesListView",
                    "sourceZonesLabel | QLabel | &Source zones |  | sourceZonesListView",
                    "dependentVariablesListView | QListView |  |  | ", "sourceZonesListView | QListView |  |  | ",
                    "windowFunctionLabel | QLabel | &Window function: |  | windowFunctionComboBox",
                    "windowFunctionComboBox | QComboBox |  |  | ",
                    "plotPlacementLabel | QLabel | &Plot placement: |  | plotPlacementComboBox",
                    "plotPlacementComboBox | QComboBox |  |  | ",
                    "includeConjugatesCheckBox | QCheckBox | Include &conjugates |  | ",
                    "latestResultZonesCheckBox | QCheckBox | Replace &zones |  | ",
                    "obeySourceZoneBlankingCheckBox | QCheckBox | Obey source zone &blanking |  | ",
                    "latestResultVariablesCheckBox | QCheckBox | Replace &variables |  | ",
                    "buttonBox | QDialogButtonBox |  |  | ", " | QPushButton | &Transform |  | ",
                    " | QPushButton | Close |  | ", " | QPushButton | Help |  | "));
    EXPECT_FALSE(dialog().isModal());
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::ExtendedSelection);
    EXPECT_EQ(child<QListView>(sources).selectionMode(), QAbstractItemView::ExtendedSelection);
    EXPECT_EQ(buttonBox().orientation(), Qt::Horizontal);
    EXPECT_EQ(buttonBox().standardButtons(),
              QDialogButtonBox::Apply | QDialogButtonBox::Close | QDialogButtonBox::Help);
    EXPECT_EQ(&actionButton(), buttonBox().button(QDialogButtonBox::Apply));
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ApplyRole);
}

TEST_F(FourierTransformDialogTest, LaysTheSourcesOutBesideTheVariables)
{
    EXPECT_THAT(
        formLayout(dialog()),
        testing::UnorderedElementsAre(
            "verticalLayout | 0 | gridLayout", "gridLayout | 0, 0, 1, 4 | horizontalLayout",
            "gridLayout | 1, 0, 1, 2 | dependentVariablesLabel", "gridLayout | 1, 2, 1, 2 | sourceZonesLabel",
            "gridLayout | 2, 0, 6, 2 | dependentVariablesListView", "gridLayout | 2, 2, 6, 2 | sourceZonesListView",
            "gridLayout | 8, 0, 1, 4 | horizontalLayout_2", "gridLayout | 9, 0, 1, 4 | horizontalLayout_3",
            "gridLayout | 10, 0, 1, 2 | includeConjugatesCheckBox",
            "gridLayout | 10, 2, 1, 2 | latestResultZonesCheckBox",
            "gridLayout | 11, 0, 1, 2 | obeySourceZoneBlankingCheckBox",
            "gridLayout | 11, 2, 1, 2 | latestResultVariablesCheckBox", "gridLayout | 12, 0, 1, 4 | buttonBox",
            "horizontalLayout | 0 | independentVariablesLabel", "horizontalLayout | 1 | independentVariablesComboBox",
            "horizontalLayout_2 | 0 | windowFunctionLabel", "horizontalLayout_2 | 1 | windowFunctionComboBox",
            "horizontalLayout_3 | 0 | plotPlacementLabel", "horizontalLayout_3 | 1 | plotPlacementComboBox"));
}

TEST_F(FourierTransformDialogTest, CanBeWalkedByTab)
{
    launched();
    clickRow(2);
    IdleDispatcher::flush();
    EXPECT_THAT(tabOrder(dialog()),
                ElementsAre(independent, dependent, sources, window, placement, conjugates, replaceZones, blanking,
                            replaceVars, "[Close]", "[&Transform]", "[Help]"));
}

TEST_F(FourierTransformDialogTest, TranslatesTheTextsOfItsFormOnly)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Discrete Fourier Transform>"));
    for (char const* const text :
         {"Discrete Fourier Transform", "&Independent variable:", "&Dependent variables", "&Source zones",
          "&Window function:", "&Plot placement:", "Include &conjugates", "Replace &zones", "Replace &variables",
          "Obey source zone &blanking", "Rectangular", "Triangular", "Hann", "Hamming", "Overlay", "Tile"})
        EXPECT_EQ(translator.asked.count(std::string("FourierTransform: ") + text), 1u) << text;
    EXPECT_EQ(actionButton().text(), QStringLiteral("&Transform"));
}

TEST_F(FourierTransformDialogTest, OffersVariablesLinesWindowsAndPlaces)
{
    sample.dataSet().addZone(std::make_shared<kernel::Zone>("Plane", ZoneType_Ordered, 4, 4, 1));
    launched();
    EXPECT_THAT(choicesOf(independent), ElementsAre("1: X", "2: Y", "3: P", "4: T"));
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "3: P", "4: T"));
    EXPECT_THAT(rowsOf(sources), ElementsAre("*1: Wing", "2: Body", "3: Tail"));
    EXPECT_THAT(choicesOf(window), ElementsAre("Rectangular", "Triangular", "Hann", "Hamming"));
    EXPECT_THAT(choicesOf(placement), ElementsAre("In corner of source frame", "Tile with existing frames"));
}

TEST_F(FourierTransformDialogTest, StartsWithTheFirstZoneAndNothingToTransform)
{
    launched();
    EXPECT_EQ(chosen(independent), "1: X");
    EXPECT_EQ(chosen(window), "Rectangular");
    EXPECT_EQ(chosen(placement), "In corner of source frame");
    EXPECT_FALSE(isChecked(conjugates));
    EXPECT_TRUE(isChecked(replaceZones));
    EXPECT_TRUE(isChecked(replaceVars));
    EXPECT_FALSE(isChecked(blanking));
    EXPECT_FALSE(canAct());
    clickRow(0);
    EXPECT_FALSE(canAct()) << "the independent variable alone";
    clickRow(2);
    EXPECT_TRUE(canAct()) << "so one zone must be chosen";
}

TEST_F(FourierTransformDialogTest, ActsOnlyWithAVariableBesidesTheIndependentOneAndWithASource)
{
    launched();
    clickRow(2);
    EXPECT_TRUE(canAct());
    choose(independent, 2);
    EXPECT_FALSE(canAct()) << "it has become the independent one";
    clickRow(3, Qt::ControlModifier);
    EXPECT_TRUE(canAct()) << "of two at least one is another";
    clickRowOf(child<QListView>(sources), 0, Qt::ControlModifier);
    EXPECT_THAT(rowsOf(sources), ElementsAre("1: Wing", "2: Body", "3: Tail"));
    EXPECT_FALSE(canAct()) << "no source";
    clickRowOf(sources, 2);
    EXPECT_TRUE(canAct());
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(FourierTransformDialogTest, SetsTheOptionsOfTheLibrary)
{
    using Manager = FourierTransformPropertiesManager;
    launched();
    choose(window, 2);
    EXPECT_EQ(Manager::windowFunction()->value(), WindowFunction_Hann);
    choose(placement, 1);
    EXPECT_EQ(Manager::plotDisplay()->value(), FourierPlotDisplayType_Tile);
    clickMark(conjugates);
    EXPECT_TRUE(Manager::includeConjugates()->value());
    clickMark(replaceZones);
    EXPECT_FALSE(Manager::replaceLatestResultZones()->value());
    EXPECT_TRUE(Manager::replaceLatestResultVars()->value());
    clickMark(replaceVars);
    EXPECT_FALSE(Manager::replaceLatestResultVars()->value());
    clickMark(blanking);
    EXPECT_TRUE(Manager::obeySourceZoneBlanking()->value());
}

TEST_F(FourierTransformDialogTest, KeepsItsOptionsWhenItIsMadeAnewButNotItsSelections)
{
    launched();
    choose(independent, 1);
    choose(window, 3);
    choose(placement, 1);
    for (char const* const option : {conjugates, replaceZones, replaceVars, blanking})
        clickMark(option);
    clickRow(3);
    clickRowOf(sources, 1);
    delete &dialog();
    launched();
    EXPECT_EQ(chosen(independent), "1: X");
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "3: P", "4: T"));
    EXPECT_THAT(rowsOf(sources), ElementsAre("*1: Wing", "2: Body", "3: Tail"));
    EXPECT_EQ(chosen(window), "Hamming");
    EXPECT_EQ(chosen(placement), "Tile with existing frames");
    EXPECT_TRUE(isChecked(conjugates));
    EXPECT_FALSE(isChecked(replaceZones));
    EXPECT_FALSE(isChecked(replaceVars));
    EXPECT_TRUE(isChecked(blanking));
}

TEST_F(FourierTransformDialogTest, DropsZonesThatCannotBeTransformedAnyMore)
{
    launched();
    clickRow(2);
    clickRowOf(child<QListView>(sources), 1, Qt::ControlModifier);
    EXPECT_THAT(rowsOf(sources), ElementsAre("*1: Wing", "*2: Body", "3: Tail"));
    enableZone(1, false);
    EXPECT_THAT(rowsOf(sources), ElementsAre("*2: Body", "3: Tail"));
    EXPECT_TRUE(canAct());
    enableZone(2, false);
    EXPECT_THAT(rowsOf(sources), ElementsAre("3: Tail"));
    EXPECT_FALSE(canAct());
    enableZone(1, true);
    EXPECT_FALSE(canAct()) << "what was dropped is not chosen again";
}

TEST_F(FourierTransformDialogTest, DropsTheZonesOfAFrameThatIsLeft)
{
    launched();
    clickRow(2);
    EXPECT_TRUE(canAct());
    sample.session().createFrame("Empty", kernel::Rectangle{0.0, 0.0, 1.0, 1.0});
    EXPECT_THAT(rowsOf(sources), IsEmpty());
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_FALSE(canAct());
    sample.session().activateFrame(sample.frame()->id);
    EXPECT_EQ(rowsOf(sources).size(), 3u);
}

TEST_F(FourierTransformDialogTest, TransformsWithoutAWordAndStaysOpen)
{
    launched();
    clickRow(1);
    IdleDispatcher::flush();
    clickAction();
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(sample.dataSet().zoneCount(), 4);
    EXPECT_EQ(sample.dataSet().variableCount(), 7);
    ASSERT_EQ(frames().size(), 2u);
    EXPECT_EQ(resultsFrame().plotType, PlotType_XYLine);
    EXPECT_EQ(resultsFrame().lineMaps.size(), 1u);
    EXPECT_EQ(VelUtilFrameGetUniqueID(), sample.frame()->id);
    EXPECT_EQ(chosen(independent), "1: X");
    EXPECT_EQ(rows().at(1), "*2: Y");
    EXPECT_EQ(rowsOf(sources).front(), "*1: Wing");
}

TEST_F(FourierTransformDialogTest, HasAPointForEachNegativeFrequencyTooIfConjugatesAreWanted)
{
    launched();
    clickRow(1);
    IdleDispatcher::flush();
    clickAction();
    ASSERT_EQ(sample.dataSet().zoneCount(), 4);
    EXPECT_EQ(sample.dataSet().zone(4)->pointCount(), 4) << "frequencies of six points from zero on";
    clickMark(replaceZones);
    clickMark(conjugates);
    clickAction();
    ASSERT_EQ(sample.dataSet().zoneCount(), 5);
    EXPECT_EQ(sample.dataSet().zone(5)->pointCount(), 6);
    EXPECT_THAT(messages.take(), IsEmpty());
}

// Its results may become a source. Of four points there are four frequencies with conjugates and three without.
TEST_F(FourierTransformDialogTest, DropsAZoneThatGetsTooShort)
{
    sample.dataSet().zone(1)->i = 4;
    for (int const variable : {1, 2, 3, 4})
        setValues(1, variable, {0.0, 1.0, 2.0, 3.0});
    launched();
    clickRow(1);
    clickMark(conjugates);
    clickAction();
    ASSERT_EQ(sample.dataSet().zoneCount(), 4);
    ASSERT_EQ(rowsOf(sources).size(), 4u);
    clickRowOf(child<QListView>(sources), 3, Qt::ControlModifier);
    ASSERT_EQ(rowsOf(sources).back().front(), '*');
    FourierTransformPropertiesManager other;
    other.dependentVariables()->setValue({2});
    other.sourceZones()->setValue({1});
    FourierTransformPropertiesManager::includeConjugates()->setValue(false);
    other.transform();
    IdleDispatcher::flush();
    ASSERT_EQ(sample.dataSet().zoneCount(), 4) << "the results took the place of the old ones";
    EXPECT_THAT(rowsOf(sources), ElementsAre("*1: Wing", "2: Body", "3: Tail"));
    EXPECT_TRUE(canAct());
}

TEST_F(FourierTransformDialogTest, CanBeDrivenByItsMnemonics)
{
    launched();
    for (auto const& [key, field] :
         {std::pair{Qt::Key_I, independent}, std::pair{Qt::Key_D, dependent}, std::pair{Qt::Key_S, sources},
          std::pair{Qt::Key_W, window}, std::pair{Qt::Key_P, placement}}) {
        QTest::keyClick(dialog().focusWidget(), key, Qt::AltModifier);
        EXPECT_EQ(dialog().focusWidget(), &child<QWidget>(field));
    }
    for (auto const& [key, box] : {std::pair{Qt::Key_C, conjugates}, std::pair{Qt::Key_Z, replaceZones},
                                   std::pair{Qt::Key_V, replaceVars}, std::pair{Qt::Key_B, blanking}}) {
        bool const before = isChecked(box);
        QTest::keyClick(dialog().focusWidget(), key, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&, name = box] { return isChecked(name) != before; })) << box;
    }
}

TEST_F(FourierTransformDialogTest, IsClosedByCloseAndNotByItsAction)
{
    launched();
    clickRow(1);
    IdleDispatcher::flush();
    QTest::keyClick(dialog().focusWidget(), Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return frames().size() == 2; })) << "the mnemonic has run it";
    EXPECT_TRUE(dialog().isVisible());
    clickClose();
    EXPECT_FALSE(dialog().isVisible());
}

} // namespace
} // namespace veldraw::tests

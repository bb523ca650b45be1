#include "platform/vdsdkcommon/WaitState.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"

#include <QComboBox>
#include <QLabel>
#include <QSpinBox>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

/// The controls over the table. The zones are a block of 3 by 3 by 2 points, four points with values at two places, and a line.
class DataSpreadsheetControlsTest : public SpreadsheetDriver
{
protected:
    DataSpreadsheetControlsTest()
    {
        stage.addZone("Block", ZoneType_Ordered, 3, 3, 2);
        stage.addZone("Skin", ZoneType_FETriangle, 4, 2, 0);
        stage.addZone("Line", ZoneType_Ordered, 5, 1, 1);
        for (int zone = 1; zone <= 3; ++zone)
            stage.fillAll(zone);
        stage.fill(2, 2, FieldDataType_Float, ValueLocation_CellCentered);
        stage.show();
        launched();
    }

    void choose(char const* comboBox, Qt::Key key)
    {
        widget<QComboBox>(comboBox).setFocus();
        QTest::keyClick(&widget<QComboBox>(comboBox), key);
        settle();
    }
    void typeNumber(char const* spinBox, char const* number)
    {
        auto& box = widget<QSpinBox>(spinBox);
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, QLatin1String(number));
        QTest::keyClick(&box, Qt::Key_Return);
        settle();
    }
    void step(char const* spinBox, Qt::Key key)
    {
        widget<QSpinBox>(spinBox).setFocus();
        QTest::keyClick(&widget<QSpinBox>(spinBox), key);
        settle();
    }

    /// Whether a control and its label can be used; they always go together.
    bool isOffered(std::string const& name, char const* kind)
    {
        bool const control = widget<QWidget>((name + kind).c_str()).isEnabled();
        EXPECT_EQ(widget<QLabel>((name + "_Label").c_str()).isEnabled(), control) << name;
        return control;
    }
    bool isShown(char const* outline) { return widget<QWidget>(outline).isVisible(); }
};

TEST_F(DataSpreadsheetControlsTest, WalkThroughThePlanesOfABlock)
{
    EXPECT_EQ(shown(0, 0), "100");
    typeNumber("Index_SpinBox", "2");
    EXPECT_EQ(shown(0, 0), "109");
    step("Index_SpinBox", Qt::Key_Down);
    EXPECT_EQ(shown(0, 0), "100");
    choose("Plane_ComboBox", Qt::Key_Home);
    EXPECT_EQ(widget<QComboBox>("Plane_ComboBox").currentText(), QStringLiteral("I"));
    EXPECT_EQ(table().model()->columnCount(), 2);
    typeNumber("Index_SpinBox", "3");
    EXPECT_EQ(shown(0, 0), "102");
    choose("Plane_ComboBox", Qt::Key_End);
    EXPECT_EQ(widget<QSpinBox>("Index_SpinBox").value(), 1) << "each direction has its own index";
    EXPECT_EQ(shown(0, 0), "100");
    typeNumber("Index_SpinBox", "77");
    EXPECT_EQ(widget<QSpinBox>("Index_SpinBox").value(), 2) << "no more than there are";
    EXPECT_EQ(shown(0, 0), "109");
}

TEST_F(DataSpreadsheetControlsTest, ChooseTheVariableOfABlock)
{
    choose("Variable_ComboBox", Qt::Key_Down);
    EXPECT_EQ(shown(0, 0), "200");
}

TEST_F(DataSpreadsheetControlsTest, ChooseHowNumbersAreWritten)
{
    choose("Format_ComboBox", Qt::Key_Home);
    EXPECT_EQ(widget<QComboBox>("Format_ComboBox").currentText(), QStringLiteral("Integer"));
    EXPECT_FALSE(isOffered("Precision", "_SpinBox"));
    choose("Format_ComboBox", Qt::Key_Down);
    EXPECT_TRUE(isOffered("Precision", "_SpinBox"));
    EXPECT_EQ(shown(0, 0), "100.000");
    typeNumber("Precision_SpinBox", "5");
    EXPECT_EQ(shown(0, 0), "100.00000");
    step("Precision_SpinBox", Qt::Key_Up);
    EXPECT_EQ(shown(0, 0), "100.000000");
    typeNumber("Precision_SpinBox", "99");
    EXPECT_EQ(Choices::spreadsheetPrecision()->value(), 6) << "99 is beyond 16, and no other number is made of it";
    EXPECT_THAT(messages.take(), testing::IsEmpty());
    choose("Format_ComboBox", Qt::Key_Down);
    EXPECT_TRUE(isOffered("Precision", "_SpinBox"));
    choose("Format_ComboBox", Qt::Key_Down);
    EXPECT_FALSE(isOffered("Precision", "_SpinBox"));
}

TEST_F(DataSpreadsheetControlsTest, AreOfferedTogetherWithTheirLabelsWhereTheyApply)
{
    EXPECT_TRUE(isOffered("Plane", "_ComboBox") && isOffered("Index", "_SpinBox"));
    EXPECT_TRUE(isOffered("Variable", "_ComboBox"));
    EXPECT_FALSE(isOffered("ValueLocation", "_ComboBox"));
    EXPECT_TRUE(isShown("Variable_Outline") && !isShown("ValueLocation_Outline"));
    choose("Zone_ComboBox", Qt::Key_Down);
    EXPECT_FALSE(isOffered("Plane", "_ComboBox") || isOffered("Index", "_SpinBox"));
    EXPECT_FALSE(isOffered("Variable", "_ComboBox"));
    EXPECT_TRUE(isOffered("ValueLocation", "_ComboBox"));
    EXPECT_TRUE(!isShown("Variable_Outline") && isShown("ValueLocation_Outline"));
    choose("Zone_ComboBox", Qt::Key_Down);
    EXPECT_FALSE(isOffered("Plane", "_ComboBox") || isOffered("Variable", "_ComboBox"));
    EXPECT_FALSE(isShown("Variable_Outline") || isShown("ValueLocation_Outline"));
}

TEST_F(DataSpreadsheetControlsTest, AreReachedByTheirLetters)
{
    auto const reached = [this](Qt::Key letter) {
        table().setFocus();
        QTest::keyClick(&table(), letter, Qt::AltModifier);
        settle();
        return dialog().focusWidget();
    };
    EXPECT_EQ(reached(Qt::Key_Z), &widget<QComboBox>("Zone_ComboBox"));
    EXPECT_EQ(reached(Qt::Key_V), &widget<QComboBox>("Variable_ComboBox"));
    EXPECT_EQ(reached(Qt::Key_P), &widget<QComboBox>("Plane_ComboBox"));
    EXPECT_EQ(reached(Qt::Key_I), &widget<QSpinBox>("Index_SpinBox"));
    EXPECT_EQ(reached(Qt::Key_F), &widget<QComboBox>("Format_ComboBox"));
    Choices::spreadsheetZone()->setValue(2);
    settle();
    EXPECT_EQ(reached(Qt::Key_V), &widget<QComboBox>("ValueLocation_ComboBox"));
}

TEST_F(DataSpreadsheetControlsTest, LeaveTheTableUnpaintedWhileTheApplicationIsBusy)
{
    {
        sdk::WaitState const busy;
        EXPECT_FALSE(table().updatesEnabled());
    }
    EXPECT_TRUE(table().updatesEnabled());
}

} // namespace
} // namespace veldraw::tests

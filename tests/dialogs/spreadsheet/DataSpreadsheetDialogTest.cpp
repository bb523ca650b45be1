#include "kernel/operations/LoadVariables.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QProxyStyle>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSpinBox>
#include <QStackedWidget>
#include <QStyleOptionHeader>
#include <QTimer>
#include <QToolTip>

#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// Three zones: triangles with four points and two elements, a plane of 3 by 2 points, and a block of 3 by 3 by 2.
class DataSpreadsheetDialogTest : public SpreadsheetDriver
{
protected:
    DataSpreadsheetDialogTest()
    {
        stage.addZone("Skin", ZoneType_FETriangle, 4, 2, 0);
        stage.addZone("Sheet", ZoneType_Ordered, 3, 2, 1);
        stage.addZone("Block", ZoneType_Ordered, 3, 3, 2);
        for (int zone = 1; zone <= 3; ++zone)
            stage.fillAll(zone);
    }

    void chooseZone(int zone)
    {
        Choices::spreadsheetZone()->setValue(zone);
        settle();
    }

    QAbstractButton& corner() { return *table().findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly); }

    bool isEnabled(char const* name) { return widget<QWidget>(name).isEnabled(); }
};

TEST_F(DataSpreadsheetDialogTest, LooksAsItsFormSays)
{
    stage.show();
    std::string const p = "dataSpreadsheet_";
    EXPECT_THAT(
        formTable(launched()),
        UnorderedElementsAre(
            "DataSpreadsheetDialog | veldraw::sdk::ui::dialogs::DataSpreadsheetDialog | Data Spreadsheet |  | ",
            p + "Zone_Label | QLabel | &Zone: |  | " + p + "Zone_ComboBox", p + "Zone_ComboBox | QComboBox |  |  | ",
            p + "VariableSelection_Marker | QStackedWidget |  |  | ", p + "Variable_Outline | QWidget |  |  | ",
            p + "Variable_Label | QLabel | &Variable: |  | " + p + "Variable_ComboBox",
            p + "Variable_ComboBox | QComboBox |  |  | ", p + "ValueLocation_Outline | QWidget |  |  | ",
            p + "ValueLocation_Label | QLabel | &Value Location: |  | " + p + "ValueLocation_ComboBox",
            p + "ValueLocation_ComboBox | QComboBox |  |  | ",
            p + "Plane_Label | QLabel | &Plane: |  | " + p + "Plane_ComboBox",
            p + "Plane_ComboBox | QComboBox |  |  | ", p + "Index_Label | QLabel | &Index: |  | " + p + "Index_SpinBox",
            p + "Index_SpinBox | veldraw::ui::IntegralSpinBox | 1 |  | ",
            p + "Format_Label | QLabel | &Format: |  | " + p + "Format_ComboBox",
            p + "Format_ComboBox | QComboBox |  |  | ",
            p + "Precision_Label | QLabel | P&recision: |  | " + p + "Precision_SpinBox",
            p + "Precision_SpinBox | veldraw::ui::IntegralSpinBox | 3 |  | ",
            p + "Array_TableView | veldraw::dialogs::common::TableViewWithPreferredDimensions |  |  | ",
            p + "Row_ScrollBar | veldraw::sdk::ui::propertymanager::WindowScrollBar |  |  | ",
            p + "Column_ScrollBar | veldraw::sdk::ui::propertymanager::WindowScrollBar |  |  | ",
            p + "AlterSharedZones_CheckBox | QCheckBox | &Alter in all shared zones |  | ",
            p + "LoadVariables_PushButton | QPushButton | &Load Variables... |  | ",
            "buttonBox | QDialogButtonBox |  |  | ", " | QPushButton | Close |  | ", " | QPushButton | Help |  | "));
    EXPECT_EQ(widget<QPushButton>("LoadVariables_PushButton").focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(widget<QStackedWidget>("VariableSelection_Marker").currentIndex(), 0);
    EXPECT_EQ(dialog().findChild<QDialogButtonBox*>()->orientation(), Qt::Horizontal);
    EXPECT_EQ(table().contextMenuPolicy(), Qt::CustomContextMenu);
    EXPECT_EQ(DataSpreadsheetDialog::relevance(), Choices::dataSetExists());
    EXPECT_EQ(table().accessibleName(), QStringLiteral("Values"));
}

TEST_F(DataSpreadsheetDialogTest, PlacesItsWidgetsAsItsFormSays)
{
    stage.show();
    std::string const p = "dataSpreadsheet_";
    EXPECT_THAT(
        formLayout(launched()),
        ElementsAre(
            "gridLayout_2 | 0, 0, 1, 1 | gridLayout", "gridLayout_2 | 1, 0, 1, 1 | " + p + "Array_TableView",
            "gridLayout_2 | 2, 0, 1, 1 | horizontalLayout", "gridLayout_2 | 3, 0, 1, 1 | buttonBox",
            "gridLayout | 0, 0, 1, 1 | " + p + "Zone_Label", "gridLayout | 0, 1, 1, 4 | " + p + "Zone_ComboBox",
            "gridLayout | 0, 6, 1, 5 | " + p + "VariableSelection_Marker",
            "gridLayout | 1, 0, 1, 1 | " + p + "Plane_Label", "gridLayout | 1, 1, 1, 1 | " + p + "Plane_ComboBox",
            "gridLayout | 1, 3, 1, 1 | " + p + "Index_Label", "gridLayout | 1, 4, 1, 1 | " + p + "Index_SpinBox",
            "gridLayout | 1, 6, 1, 1 | " + p + "Format_Label", "gridLayout | 1, 7, 1, 1 | " + p + "Format_ComboBox",
            "gridLayout | 1, 9, 1, 1 | " + p + "Precision_Label",
            "gridLayout | 1, 10, 1, 1 | " + p + "Precision_SpinBox",
            p + "VariableSelection_Marker | page 0 | " + p + "Variable_Outline",
            p + "VariableSelection_Marker | page 1 | " + p + "ValueLocation_Outline",
            "gridLayout_3 | 0, 0, 1, 1 | " + p + "Variable_Label",
            "gridLayout_3 | 0, 1, 1, 1 | " + p + "Variable_ComboBox",
            "gridLayout_4 | 0, 0, 1, 1 | " + p + "ValueLocation_Label",
            "gridLayout_4 | 0, 1, 1, 1 | " + p + "ValueLocation_ComboBox",
            "horizontalLayout | 0 | " + p + "AlterSharedZones_CheckBox", "horizontalLayout | 1 | spacer",
            "horizontalLayout | 2 | " + p + "LoadVariables_PushButton"));
}

TEST_F(DataSpreadsheetDialogTest, HasTheLimitsAndSizesOfItsForm)
{
    stage.show();
    launched();
    EXPECT_EQ(widget<QSpinBox>("Index_SpinBox").minimum(), 1);
    EXPECT_EQ(widget<QSpinBox>("Index_SpinBox").maximum(), 2147483646);
    EXPECT_EQ(widget<QSpinBox>("Precision_SpinBox").minimum(), 0);
    EXPECT_EQ(widget<QSpinBox>("Precision_SpinBox").maximum(), 16);
    EXPECT_EQ(table().horizontalHeader()->defaultSectionSize(), 75);
    // Room for 24 rows and 10 columns whatever the size of the zone and of the screen.
    EXPECT_EQ(table().sizeHint().width(), 10 * 75 + table().verticalHeader()->width() + 2 * table().frameWidth() +
                                              table().verticalScrollBar()->sizeHint().width());
    EXPECT_EQ(table().sizeHint().height(),
              24 * table().verticalHeader()->defaultSectionSize() + table().horizontalHeader()->sizeHint().height() +
                  2 * table().frameWidth() + table().horizontalScrollBar()->sizeHint().height());
    EXPECT_EQ(dialog().size(), dialog().sizeHint().boundedTo(dialog().screen()->availableSize() * 9 / 10));
}

TEST_F(DataSpreadsheetDialogTest, ShowsANumberWithALeadingPlusLikeAnyOther)
{
    auto const shownText = [this](char const* text) {
        return static_cast<QStyledItemDelegate&>(*table().itemDelegate())
            .displayText(QString::fromUtf8(text), QLocale());
    };
    stage.show();
    launched();
    EXPECT_EQ(shownText("+1.5"), shownText("1.5"));
    EXPECT_EQ(shownText("+1.5").toDouble(), 1.5);
    for (char const* const text : {"+", "+-1", "++1", "-+1", "+ 1"})
        EXPECT_EQ(shownText(text), QString()) << text;
}

TEST_F(DataSpreadsheetDialogTest, TakesANumberThatIsPastedWithBlanksAround)
{
    stage.show();
    launched();
    std::vector<std::pair<char const*, double>> const pasted{
        {" 4.5 ", 4.5}, {"3.25\n", 3.25}, {"\t-1e3\r\n", -1000.0}, {"\u00a05\u202f", 5.0}, {"\u00a0\ufeff6.5", 6.5}};
    for (auto const& [text, number] : pasted) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        goTo(0, 0);
        QTest::keyClick(&table(), Qt::Key_F2);
        auto* const editor = table().viewport()->findChild<QLineEdit*>();
        ASSERT_TRUE(editor);
        editor->selectAll();
        QTest::keyClick(editor, Qt::Key_V, Qt::ControlModifier);
        pressInEditor(Qt::Key_Return);
        EXPECT_EQ(stage.stored(1, 1, 0), number);
    }
}

TEST_F(DataSpreadsheetDialogTest, EndsAnEditByEnterOfTheKeypad)
{
    stage.show();
    launched();
    goTo(1, 0);
    type("12");
    pressInEditor(Qt::Key_Enter);
    EXPECT_FALSE(table().viewport()->findChild<QLineEdit*>());
    EXPECT_EQ(stage.stored(1, 1, 1), 12.0);
    EXPECT_EQ(current(), "1, 0") << "the key stays with the editor";
    EXPECT_TRUE(dialog().isVisible());
}

/// Ways in which the dialog goes while an edit is open.
class ClosedUnderEdit : public DataSpreadsheetDialogTest, public testing::WithParamInterface<char const*>
{
protected:
    void close(std::string const& way)
    {
        if (way == "Close")
            QTest::mouseClick(dialog().findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Close), Qt::LeftButton);
        else if (way == "drop")
            dialog().drop();
        else
            dialog().close();
    }
};

TEST_P(ClosedUnderEdit, DropsTheEdit)
{
    stage.show();
    launched();
    goTo(1, 0);
    type("12");
    close(GetParam());
    settle();
    ASSERT_FALSE(dialog().isVisible());
    EXPECT_EQ(stage.stored(1, 1, 1), 101.0);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(table().viewport()->findChild<QLineEdit*>());
    EXPECT_THAT(messages.take(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Ways, ClosedUnderEdit, testing::Values("Close", "drop", "window"));

/// The tool tip at a place of a table.
QString tipAt(QTableView& table, QPoint const& place)
{
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, place, table.viewport()->mapToGlobal(place));
    QApplication::sendEvent(table.viewport(), &event);
    return QToolTip::text();
}

/// The tool tip of a cell.
QString tipAt(QTableView& table, QModelIndex const& index)
{
    return tipAt(table, table.visualRect(index).center());
}

TEST_F(DataSpreadsheetDialogTest, SaysNothingBelowItsLastRow)
{
    stage.addZone("Bare", ZoneType_Ordered, 4, 1, 1);
    stage.show();
    launched();
    QPoint const below = table().viewport()->rect().bottomLeft() + QPoint(20, -2);
    ASSERT_FALSE(table().indexAt(below).isValid());
    EXPECT_EQ(tipAt(table(), below), QString());
}

TEST_F(DataSpreadsheetDialogTest, SaysWhyACellWithoutValuesCannotBeEdited)
{
    int const bare = stage.addZone("Bare", ZoneType_Ordered, 4, 1, 1);
    stage.fill(bare, 1, FieldDataType_Float, ValueLocation_Nodal);
    stage.show();
    launched();
    chooseZone(bare);
    EXPECT_EQ(tipAt(table(), adapter().index(0, 0)), QString());
    EXPECT_EQ(tipAt(table(), adapter().index(0, 1)),
              QStringLiteral("This variable has no values in this zone, so they can't be edited."));
    edit(0, 1, "5");
    EXPECT_THAT(messages.take(), ElementsAre("error: Error while setting variable value"));
    EXPECT_EQ(stage.session().lastError(),
              "The variable is passive in this zone: it has no values there, reads as 0 and cannot be edited.");
}

/// Writes down in which state headers are drawn.
class HeaderLog : public QProxyStyle
{
public:
    void drawControl(ControlElement element, QStyleOption const* option, QPainter* painter,
                     QWidget const* drawn) const override
    {
        if (element == CE_Header)
            states[drawn] = option->state;
        QProxyStyle::drawControl(element, option, painter, drawn);
    }
    mutable std::map<QWidget const*, QStyle::State> states;
};

TEST_F(DataSpreadsheetDialogTest, DrawsTheCornerInTheStateOfItsButton)
{
    stage.show();
    launched();
    HeaderLog style;
    corner().setStyle(&style);
    auto const drawn = [&] {
        style.states.clear();
        corner().grab();
        return style.states.at(&corner());
    };
    EXPECT_EQ(drawn(), QStyle::State_Enabled | QStyle::State_Active);
    corner().setDown(true);
    EXPECT_EQ(drawn(), QStyle::State_Enabled | QStyle::State_Active | QStyle::State_Sunken);
    corner().setDown(false);
    corner().setEnabled(false);
    EXPECT_EQ(drawn(), QStyle::State_Active);
    corner().setEnabled(true);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(drawn(), QStyle::State_Enabled);
    corner().setStyle(nullptr);
}

TEST_F(DataSpreadsheetDialogTest, GivesRoomToTheTableAndToTheChoicesAndNotToTheirLabels)
{
    stage.show();
    launched();
    QSize const tableBefore = table().size();
    int const zoneWidth = widget<QComboBox>("Zone_ComboBox").width();
    int const labelWidth = widget<QLabel>("Zone_Label").width();
    dialog().resize(dialog().size() + QSize(200, 300));
    settle();
    EXPECT_EQ(table().size(), tableBefore + QSize(200, 300));
    EXPECT_GT(widget<QComboBox>("Zone_ComboBox").width(), zoneWidth);
    EXPECT_EQ(widget<QLabel>("Zone_Label").width(), labelWidth);
}

TEST_F(DataSpreadsheetDialogTest, TranslatesTheTextsOfItsForm)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Data Spreadsheet>"));
    EXPECT_THAT(
        translator.asked,
        testing::IsSupersetOf({"DataSpreadsheetDialog: Data Spreadsheet", "DataSpreadsheetDialog: &Value Location:",
                               "DataSpreadsheetDialog: P&recision:", "DataSpreadsheetDialog: &Load Variables..."}));
}

TEST_F(DataSpreadsheetDialogTest, CanBeWalkedByTab)
{
    stage.show();
    EXPECT_THAT(tabOrder(launched()),
                ElementsAre("dataSpreadsheet_Zone_ComboBox", "dataSpreadsheet_Variable_ComboBox",
                            "dataSpreadsheet_ValueLocation_ComboBox", "dataSpreadsheet_Plane_ComboBox",
                            "dataSpreadsheet_Index_SpinBox", "dataSpreadsheet_Format_ComboBox",
                            "dataSpreadsheet_Precision_SpinBox", "dataSpreadsheet_Array_TableView",
                            "dataSpreadsheet_AlterSharedZones_CheckBox", "dataSpreadsheet_LoadVariables_PushButton",
                            "[Close]", "[Help]"));
}

TEST_F(DataSpreadsheetDialogTest, TakesAnEditByKeyboardAndItIsUndone)
{
    stage.show();
    launched();
    edit(1, 2, "-4.25e1");
    EXPECT_EQ(stage.stored(1, 3, 1), -42.5);
    EXPECT_EQ(shown(1, 2), "-42.5");
    EXPECT_EQ(current(), "1, 2") << "the Return that ends an edit stays in the cell";
    stage.session().undo();
    settle();
    EXPECT_EQ(stage.stored(1, 3, 1), 301.0);
    EXPECT_EQ(shown(1, 2), "301");
}

TEST_F(DataSpreadsheetDialogTest, DropsAnEditThatIsGivenUp)
{
    stage.show();
    launched();
    goTo(0, 0);
    type("77");
    pressInEditor(Qt::Key_Escape);
    EXPECT_EQ(stage.stored(1, 1, 0), 100.0);
    EXPECT_TRUE(dialog().isVisible());
}

TEST_F(DataSpreadsheetDialogTest, RunsDownTheColumnsByEnter)
{
    stage.show();
    launched();
    table().setFocus();
    table().setCurrentIndex(QModelIndex());
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(current(), "0, 0");
    QTest::keyClick(&table(), Qt::Key_Return);
    QTest::keyClick(&table(), Qt::Key_Enter);
    EXPECT_EQ(current(), "2, 0");
    goTo(3, 0);
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(current(), "0, 1") << "from the last row to the top of the next column";
    goTo(3, 2);
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(current(), "0, 0") << "from the last cell to the first";
    EXPECT_TRUE(dialog().isVisible());
}

struct TypedText
{
    FieldDataType_e type;
    std::string text;
    double stored; ///< 100 when the text is refused
};

void PrintTo(TypedText const& typed, std::ostream* stream)
{
    *stream << typed.text << " in type " << typed.type;
}

class TypedTexts : public DataSpreadsheetDialogTest, public testing::WithParamInterface<TypedText>
{
};

TEST_P(TypedTexts, AreTakenWithinTheLimitsOfTheType)
{
    auto const& [fieldType, text, stored] = GetParam();
    stage.fill(1, 1, fieldType, ValueLocation_Nodal,
               [t = fieldType](int, std::int64_t) { return t == FieldDataType_Bit ? 1.0 : 100.0; });
    stage.show();
    launched();
    goTo(0, 0);
    type(text);
    EXPECT_EQ(table().viewport()->findChild<QLineEdit*>()->text().toStdString(), text) << "no key is swallowed";
    pressInEditor(Qt::Key_Return);
    EXPECT_EQ(stage.stored(1, 1, 0), stored) << text;
    EXPECT_THAT(messages.take(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Spreadsheet, TypedTexts,
    testing::Values(TypedText{FieldDataType_Byte, "300", 100}, TypedText{FieldDataType_Byte, "255", 255},
                    TypedText{FieldDataType_Byte, "-1", 100}, TypedText{FieldDataType_Byte, "0", 0},
                    TypedText{FieldDataType_Bit, "0", 0}, TypedText{FieldDataType_Bit, "2", 1},
                    TypedText{FieldDataType_Int32, "-2147483648", -2147483648.0},
                    TypedText{FieldDataType_Int32, "2147483648", 100}, TypedText{FieldDataType_Int16, "-32768", -32768},
                    TypedText{FieldDataType_Float, "1e39", 100}, TypedText{FieldDataType_Float, "0.5", 0.5},
                    TypedText{FieldDataType_Double, "1e300", 1e300}, TypedText{FieldDataType_Double, "-", 100},
                    TypedText{FieldDataType_Double, "1e", 100}, TypedText{FieldDataType_Double, "1e400", 100},
                    TypedText{FieldDataType_Double, "inf", 100}, TypedText{FieldDataType_Double, "-infinity", 100},
                    TypedText{FieldDataType_Float, "nan", 100}, TypedText{FieldDataType_Float, "-inf", 100},
                    TypedText{FieldDataType_Int32, "nan", 100}, TypedText{FieldDataType_Int32, "1.5", 100},
                    TypedText{FieldDataType_Double, "1,5", 100}, TypedText{FieldDataType_Float, "2*3", 100},
                    TypedText{FieldDataType_Double, "1 5", 100}, TypedText{FieldDataType_Int32, "1,000", 100},
                    TypedText{FieldDataType_Byte, "2*3", 100}, TypedText{FieldDataType_Double, "+4.5", 4.5},
                    TypedText{FieldDataType_Byte, "+7", 7},
                    TypedText{FieldDataType_Double, "4.9406564584124654e-324",
                              std::numeric_limits<double>::denorm_min()}));

TEST_F(DataSpreadsheetDialogTest, TakesNoCommaForAnyPurpose)
{
    stage.show();
    launched();
    goTo(0, 0);
    QTest::keyClick(&table(), Qt::Key_F2);
    auto* const editor = table().viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    for (char const* const text : {"1,5", "1,000", "1'000", "abc", "0x10"}) {
        editor->setText(QLatin1String(text));
        EXPECT_FALSE(editor->hasAcceptableInput()) << text;
    }
    editor->setText(QStringLiteral("1,000"));
    pressInEditor(Qt::Key_Return);
    EXPECT_EQ(stage.stored(1, 1, 0), 100.0);
}

TEST_F(DataSpreadsheetDialogTest, KeepsNotLoadedReadableInEveryFormat)
{
    stage.defer(1, 2, 7.0);
    stage.show();
    launched();
    for (int format = 0; format <= 3; ++format) {
        Choices::spreadsheetFormat()->setValue(static_cast<NumberFormat_e>(format));
        settle();
        EXPECT_EQ(shown(0, 1), "Not Loaded");
    }
    edit(0, 1, "5");
    EXPECT_EQ(shown(0, 1), "Not Loaded");
    EXPECT_THAT(messages.take(), IsEmpty());
    stage.session().perform(
        kernel::MakeVariablesAvailable(stage.dataSet(), kernel::NumberSet{1}, kernel::NumberSet{1, 2, 3}));
    settle();
    EXPECT_EQ(shown(0, 1), "7");
}

TEST_F(DataSpreadsheetDialogTest, ShowsNumbersInTheChosenFormat)
{
    stage.fill(1, 1, FieldDataType_Double, ValueLocation_Nodal, [](int, std::int64_t index) {
        return index == 0 ? 1234.56789 : std::numeric_limits<double>::quiet_NaN();
    });
    stage.show();
    launched();
    auto const inFormat = [&](int format) {
        Choices::spreadsheetFormat()->setValue(static_cast<NumberFormat_e>(format));
        settle();
        EXPECT_EQ(shown(1, 0), "nan");
        return shown(0, 0);
    };
    EXPECT_EQ(inFormat(0), "1235");
    EXPECT_EQ(inFormat(1), "1234.568");
    Choices::spreadsheetPrecision()->setValue(1);
    EXPECT_EQ(inFormat(1), "1234.6");
    EXPECT_EQ(inFormat(2), "1.2E+03");
    EXPECT_EQ(table().model()->index(0, 0).data(Qt::EditRole).toString().left(9), QStringLiteral("1234.5678"));
}

TEST_F(DataSpreadsheetDialogTest, NamesTheAxesInTheCorner)
{
    stage.show();
    launched();
    EXPECT_EQ(corner().text(), QStringLiteral("N \\ V"));
    QStyleOptionHeader option;
    option.text = corner().text();
    option.fontMetrics = table().verticalHeader()->fontMetrics();
    QSize const text =
        table().style()->sizeFromContents(QStyle::CT_HeaderSection, &option, QSize(), table().verticalHeader());
    EXPECT_GE(table().verticalHeader()->width(), text.width() + 6);
    EXPECT_GE(table().verticalHeader()->minimumWidth(), text.width() + 6);
    QImage const withText = corner().grab().toImage();
    corner().setText(QString());
    EXPECT_NE(corner().grab().toImage(), withText) << "the corner shows its text";
    chooseZone(3);
    EXPECT_EQ(corner().text(), QStringLiteral("I \\ J"));
}

TEST_F(DataSpreadsheetDialogTest, OffersWhatTheZoneNeeds)
{
    stage.show();
    launched();
    EXPECT_FALSE(widget<QWidget>("Variable_Outline").isVisible());
    EXPECT_FALSE(widget<QWidget>("ValueLocation_Outline").isVisible());
    EXPECT_FALSE(isEnabled("Plane_ComboBox"));
    chooseZone(3);
    EXPECT_TRUE(widget<QWidget>("Variable_Outline").isVisible());
    EXPECT_TRUE(isEnabled("Plane_ComboBox") && isEnabled("Index_SpinBox"));
    EXPECT_FALSE(isEnabled("Precision_SpinBox"));
    EXPECT_FALSE(isEnabled("AlterSharedZones_CheckBox"));
    EXPECT_EQ(widget<QWidget>("Variable_Outline").size(), widget<QWidget>("VariableSelection_Marker").size());
}

TEST_F(DataSpreadsheetDialogTest, OffersTheLocationWhenLocationsAreMixed)
{
    stage.fill(1, 2, FieldDataType_Float, ValueLocation_CellCentered);
    stage.show();
    launched();
    EXPECT_TRUE(widget<QWidget>("ValueLocation_Outline").isVisible());
    EXPECT_EQ(widget<QWidget>("ValueLocation_Outline").size(), widget<QWidget>("VariableSelection_Marker").size());
    auto& box = widget<QComboBox>("ValueLocation_ComboBox");
    EXPECT_EQ(box.currentText(), QStringLiteral("Node"));
    EXPECT_EQ(box.itemText(0), QStringLiteral("Cell center"));
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Up);
    settle();
    EXPECT_EQ(table().model()->rowCount(), 2);
    EXPECT_EQ(table().model()->columnCount(), 1);
}

TEST_F(DataSpreadsheetDialogTest, StandsEmptyWithoutADataSet)
{
    stage.show();
    launched();
    stage.hide();
    settle();
    EXPECT_EQ(table().model()->rowCount(), 0);
    EXPECT_EQ(table().model()->columnCount(), 0);
    table().setFocus();
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_FALSE(table().currentIndex().isValid());
    EXPECT_FALSE(table().isEnabled());
    stage.show();
    settle();
    EXPECT_EQ(table().model()->rowCount(), 4);
}

TEST_F(DataSpreadsheetDialogTest, CanBeMadeWithoutADataSet)
{
    launched();
    EXPECT_EQ(table().model()->rowCount(), 0);
    EXPECT_EQ(table().model()->columnCount(), 0);
}

TEST_F(DataSpreadsheetDialogTest, CopiesTheSelectedRectangleAsTheShortestTextThatReadsBackTheSame)
{
    stage.fill(1, 1, FieldDataType_Float, ValueLocation_Nodal, [](int, std::int64_t) { return 0.1; });
    stage.show();
    launched();
    QApplication::clipboard()->setText(QStringLiteral("before"));
    table().setFocus();
    table().clearSelection();
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));
    goTo(0, 0);
    QTest::keyClick(&table(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&table(), Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("0.1\t200\n0.1\t201"));
}

TEST_F(DataSpreadsheetDialogTest, CopiesFromItsMenu)
{
    stage.show();
    launched();
    goTo(2, 2);
    std::vector<std::string> entries;
    QTimer::singleShot(0, [&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        for (QAction const* const action : menu->actions())
            entries.push_back(action->text().toStdString() + " " + action->shortcut().toString().toStdString());
        EXPECT_EQ(menu->pos(), table().viewport()->mapToGlobal(QPoint(5, 5)));
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    Q_EMIT table().customContextMenuRequested(QPoint(5, 5));
    EXPECT_THAT(entries, ElementsAre("Copy Ctrl+C", "&Go to Row... Ctrl+G"));
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("302"));
}

TEST_F(DataSpreadsheetDialogTest, OpensTheLoadOfVariablesForItsZone)
{
    stage.defer(2, 1, 1.0);
    stage.show();
    launched();
    chooseZone(2);
    QTest::mouseClick(&widget<QPushButton>("LoadVariables_PushButton"), Qt::LeftButton);
    settle();
    auto* const load = dialog().findChild<QDialog*>(QStringLiteral("LoadVariables"));
    ASSERT_TRUE(load);
    EXPECT_TRUE(load->isVisible());
    EXPECT_EQ(load->findChild<QComboBox*>()->currentText(), QStringLiteral("2: Sheet"));
}

TEST_F(DataSpreadsheetDialogTest, AltersThisZoneOrAllThatShare)
{
    int const copy = stage.addZone("Copy", ZoneType_FETriangle, 4, 2, 0);
    stage.share(copy, 1, 1);
    stage.show();
    launched();
    EXPECT_TRUE(isEnabled("AlterSharedZones_CheckBox"));
    QTest::mouseClick(&widget<QCheckBox>("AlterSharedZones_CheckBox"), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    settle();
    edit(0, 0, "5");
    EXPECT_EQ(stage.stored(1, 1, 0), 5.0);
    EXPECT_EQ(stage.stored(copy, 1, 0), 5.0);
    QTest::mouseClick(&widget<QCheckBox>("AlterSharedZones_CheckBox"), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    settle();
    edit(0, 0, "6");
    EXPECT_EQ(stage.stored(1, 1, 0), 6.0);
    EXPECT_EQ(stage.stored(copy, 1, 0), 5.0);
}

TEST_F(DataSpreadsheetDialogTest, AltersThisBlockOrAllThatShare)
{
    int const copy = stage.addZone("Copy", ZoneType_Ordered, 3, 3, 2);
    stage.share(copy, 1, 3);
    stage.show();
    launched();
    chooseZone(3);
    auto& alterAll = widget<QCheckBox>("AlterSharedZones_CheckBox");
    ASSERT_TRUE(alterAll.isEnabled());
    alterAll.click();
    settle();
    edit(1, 2, "5");
    EXPECT_EQ(stage.stored(3, 1, 7), 5.0);
    EXPECT_EQ(stage.stored(copy, 1, 7), 5.0);
    alterAll.click();
    settle();
    edit(1, 2, "6");
    EXPECT_EQ(stage.stored(3, 1, 7), 6.0);
    EXPECT_EQ(stage.stored(copy, 1, 7), 5.0);
}

} // namespace
} // namespace veldraw::tests

#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"

#include <QClipboard>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

struct RefusedText
{
    FieldDataType_e type;
    char const* text;
};

std::ostream& operator<<(std::ostream& stream, RefusedText const& refused)
{
    return stream << refused.type << " \"" << refused.text << '"';
}

/// Texts that a cell of a type must not take, however they get into its editor. The cell holds 1.
class DataSpreadsheetRefusedValuesTest : public SpreadsheetDriver, public testing::WithParamInterface<RefusedText>
{
protected:
    DataSpreadsheetRefusedValuesTest()
    {
        stage.addZone("line", ZoneType_Ordered, 3, 1, 1);
        stage.fill(1, 1, GetParam().type, ValueLocation_Nodal, [](int, std::int64_t) { return 1.0; });
        stage.show();
        stage.session().history().clear();
        launched();
        table().setFocus();
        goTo(1, 0);
    }
    QLineEdit& openEditor()
    {
        QTest::keyClick(&table(), Qt::Key_F2);
        return *table().viewport()->findChild<QLineEdit*>();
    }
    void expectUntouched()
    {
        settle();
        for (int row = 0; row < 3; ++row)
            EXPECT_EQ(stage.stored(1, 1, row), 1.0) << row;
        EXPECT_EQ(shown(1, 0), "1");
        EXPECT_FALSE(stage.session().history().canUndo());
        EXPECT_THAT(messages.take(), testing::IsEmpty());
    }
};

TEST_P(DataSpreadsheetRefusedValuesTest, AlterNothingWhenTheyArePasted)
{
    QApplication::clipboard()->setText(QString::fromUtf8(GetParam().text));
    QLineEdit& editor = openEditor();
    editor.selectAll();
    QTest::keyClick(&editor, Qt::Key_V, Qt::ControlModifier);
    pressInEditor(Qt::Key_Return);
    expectUntouched();
}

TEST_P(DataSpreadsheetRefusedValuesTest, AlterNothingWhenAnEditorHoldsThem)
{
    QLineEdit& editor = openEditor();
    editor.setText(QString::fromUtf8(GetParam().text));
    EXPECT_FALSE(editor.hasAcceptableInput());
    pressInEditor(Qt::Key_Return);
    expectUntouched();
}

TEST_P(DataSpreadsheetRefusedValuesTest, AlterNothingWhenAnEditorThatHoldsThemLosesTheFocus)
{
    openEditor().setText(QString::fromUtf8(GetParam().text));
    widget<QWidget>("Zone_ComboBox").setFocus();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(table().viewport()->findChild<QLineEdit*>());
    expectUntouched();
}

/// Texts of which no key that is taken makes a number.
class TypedWordsTest : public DataSpreadsheetRefusedValuesTest
{
};

TEST_P(TypedWordsTest, AlterNothing)
{
    type(GetParam().text);
    pressInEditor(Qt::Key_Return);
    expectUntouched();
}

std::vector<RefusedText> typedWords()
{
    std::vector<RefusedText> words;
    for (FieldDataType_e const type : {FieldDataType_Float, FieldDataType_Double, FieldDataType_Int32,
                                       FieldDataType_Int16, FieldDataType_Byte, FieldDataType_Bit}) {
        for (char const* const text : {"abc", "inf", "-inf", "nan", "NaN", ",", "%"})
            words.push_back({type, text});
    }
    return words;
}

INSTANTIATE_TEST_SUITE_P(OfEachType, TypedWordsTest, testing::ValuesIn(typedWords()));

std::vector<RefusedText> refusedTexts()
{
    std::vector<RefusedText> texts;
    auto const add = [&texts](FieldDataType_e type, std::initializer_list<char const*> refused) {
        for (char const* const text : refused)
            texts.push_back({type, text});
    };
    // Nothing, words, commas and other separators, hexadecimals, two numbers, half a number, what is no finite number.
    std::initializer_list<char const*> const everywhere{
        "",    "abc", "1,5",  "1,000", "1.000,5", "1'000", "1 000", "1\u202f000", "0x10", "2 3", "1e",  "-",
        "+-2", "--2", "1.5f", "2e",    "\u00b2",  "2\t3",  "inf",   "-inf",       "INF",  "nan", "NaN", "Not Loaded"};
    for (FieldDataType_e const type : {FieldDataType_Float, FieldDataType_Double, FieldDataType_Int32,
                                       FieldDataType_Int16, FieldDataType_Byte, FieldDataType_Bit})
        add(type, everywhere);
    for (FieldDataType_e const type : {FieldDataType_Int32, FieldDataType_Int16, FieldDataType_Byte, FieldDataType_Bit})
        add(type, {"1.5", "2e1", "0.0"});
    add(FieldDataType_Float, {"3.5e38", "-3.5e38", "1e300", "1e400"});
    add(FieldDataType_Double, {"1e400", "-1e400", "1e999999999"});
    add(FieldDataType_Int32, {"2147483648", "-2147483649", "99999999999999999999"});
    add(FieldDataType_Int16, {"2147483647", "-2147483647"});
    add(FieldDataType_Byte, {"256", "-1", "1000"});
    add(FieldDataType_Bit, {"2", "-1", "10"});
    return texts;
}

INSTANTIATE_TEST_SUITE_P(OfEachType, DataSpreadsheetRefusedValuesTest, testing::ValuesIn(refusedTexts()));

} // namespace
} // namespace veldraw::tests

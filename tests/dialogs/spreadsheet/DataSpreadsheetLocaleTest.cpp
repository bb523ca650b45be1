#include "tests/dialogs/spreadsheet/GermanNumbers.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"

#include <QClipboard>
#include <QLocale>

#include <gmock/gmock.h>
#include <locale>

namespace veldraw::tests {
namespace {

/// The spreadsheet in a process whose defaults are German.
class DataSpreadsheetLocaleTest : public SpreadsheetDriver
{
protected:
    DataSpreadsheetLocaleTest()
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        stage.addZone("line", ZoneType_Ordered, 2000, 1, 1);
        stage.fill(1, 1, FieldDataType_Double, ValueLocation_Nodal, [](int, std::int64_t) { return 1234.5; });
        stage.show();
        launched();
    }
    ~DataSpreadsheetLocaleTest() override
    {
        QLocale::setDefault(m_qt);
        std::locale::global(m_streams);
    }

private:
    QLocale const m_qt;
    std::locale const m_streams =
        std::locale::global(std::locale(std::locale::classic(), new GermanNumbers)); // owned by the locale
};

TEST_F(DataSpreadsheetLocaleTest, ShowsNumbersWithADecimalPointInEveryFormat)
{
    auto const inFormat = [this](int format) {
        Choices::spreadsheetFormat()->setValue(static_cast<NumberFormat_e>(format));
        settle();
        return shown(0, 0);
    };
    EXPECT_EQ(inFormat(1), "1234.500");
    EXPECT_EQ(inFormat(2), "1.234E+03");
    EXPECT_EQ(inFormat(3), "1234.5");
    EXPECT_EQ(adapter().headerData(1233, Qt::Vertical).toString(), QStringLiteral("1234"));
}

TEST_F(DataSpreadsheetLocaleTest, TakesAndCopiesNumbersWithADecimalPoint)
{
    edit(0, 0, "4321.25");
    EXPECT_EQ(stage.stored(1, 1, 0), 4321.25);
    goTo(0, 0);
    QTest::keyClick(&table(), Qt::Key_F2);
    pressInEditor(Qt::Key_Return);
    EXPECT_EQ(stage.stored(1, 1, 0), 4321.25);
    table().setFocus();
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("4321.25"));
}

} // namespace
} // namespace veldraw::tests

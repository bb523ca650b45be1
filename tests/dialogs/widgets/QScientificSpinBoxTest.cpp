#include "dialogs/widgets/QScientificSpinBox.h"

#include "tests/dialogs/support/SpecialNumbers.h"
#include "tests/dialogs/support/SpinBoxDriver.h"

#include <QApplication>
#include <QClipboard>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>

#include <cfloat>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace veldraw::tests {
namespace {

using veldraw::ui::QScientificSpinBox;

class QScientificSpinBoxTest : public ::testing::Test
{
protected:
    std::string shown(double value)
    {
        box.setValue(value);
        return driver.text();
    }

    QValidator::State judged(char const* text) const
    {
        QString copy = QString::fromUtf8(text);
        int position = copy.size();
        return box.validate(copy, position);
    }

    QScientificSpinBox box;
    SpinBoxDriver driver{box};
};

TEST_F(QScientificSpinBoxTest, StartsWithAllFiniteNumbersAndSixDigits)
{
    EXPECT_EQ(box.minimum(), -DBL_MAX);
    EXPECT_EQ(box.maximum(), DBL_MAX);
    EXPECT_EQ(box.decimals(), 6);
    EXPECT_EQ(driver.text(), "0");
}

TEST_F(QScientificSpinBoxTest, ShowsNoMoreDigitsThanWantedAndNoTrailingZeros)
{
    EXPECT_EQ(shown(1.0), "1");
    EXPECT_EQ(shown(0.25), "0.25");
    EXPECT_EQ(shown(100.0), "100");
    EXPECT_EQ(shown(1.0 / 3.0), "0.333333");
    EXPECT_EQ(shown(-2.0 / 3.0), "-0.666667");
    EXPECT_EQ(shown(360.0), "360");
    EXPECT_EQ(shown(-0.0), "0");
}

TEST_F(QScientificSpinBoxTest, ShowsSmallAndLargeNumbersWithAnExponent)
{
    EXPECT_EQ(shown(0.000001), "0.000001");
    EXPECT_EQ(shown(1.23456789e-7), "1.234568e-07");
    EXPECT_EQ(shown(-1.5e-300), "-1.5e-300");
    EXPECT_EQ(shown(999999999999999.0), "999999999999999");
    EXPECT_EQ(shown(1e15), "1e+15");
    EXPECT_EQ(shown(1.5e15), "1.5e+15");
    EXPECT_EQ(shown(DBL_MAX), "1.797693e+308");
    EXPECT_EQ(shown(-DBL_MAX), "-1.797693e+308");
}

TEST_F(QScientificSpinBoxTest, ShowsWhatIsNotFiniteByName)
{
    EXPECT_EQ(shown(notANumber), "nan");
    EXPECT_EQ(shown(infinity), "inf");
    EXPECT_EQ(shown(-infinity), "-inf");
    EXPECT_EQ(shown(DBL_MAX), "1.797693e+308");
    EXPECT_EQ(shown(2.5), "2.5");
}

TEST_F(QScientificSpinBoxTest, LeavesANumberThatIsNotFiniteByATypedText)
{
    box.show();
    for (double const value : {notANumber, infinity, -infinity}) {
        box.setValue(value);
        driver.press(Qt::Key_Return);
        EXPECT_TRUE(driver.text() == "nan" || driver.text() == "inf" || driver.text() == "-inf") << driver.text();
        driver.type("7");
        driver.press(Qt::Key_Return);
        EXPECT_EQ(box.value(), 7.0);
        EXPECT_EQ(driver.text(), "7");
    }
}

TEST_F(QScientificSpinBoxTest, ShowsAnotherNumberOfDigitsWithoutRounding)
{
    double const third = 1.0 / 3.0;
    box.setValue(third);
    QSignalSpy changes(&box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
    box.setDecimals(2);
    EXPECT_EQ(driver.text(), "0.33");
    box.setDecimals(0);
    EXPECT_EQ(driver.text(), "3e-01");
    box.setDecimals(8);
    EXPECT_EQ(driver.text(), "0.33333333");
    EXPECT_EQ(box.value(), third);
    EXPECT_EQ(changes.count(), 0);
    box.setDecimals(-1);
    EXPECT_EQ(box.decimals(), 0);
    box.setDecimals(400);
    EXPECT_EQ(box.decimals(), 17);
}

TEST_F(QScientificSpinBoxTest, KeepsEveryBitOfWhatItIsGiven)
{
    std::mt19937_64 random(20);
    std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
    std::uniform_int_distribution<int> exponent(-1000, 1023);
    for (int i = 0; i < 300; ++i) {
        double const value = std::ldexp(mantissa(random), exponent(random));
        box.setValue(value);
        ASSERT_EQ(box.value(), value);
        ASSERT_EQ(box.valueFromText(box.text()), value);
        box.interpretText();
        ASSERT_EQ(box.value(), value);
    }
}

TEST_F(QScientificSpinBoxTest, KeepsItsValueWhenNothingIsTyped)
{
    box.show();
    double const third = 1.0 / 3.0;
    box.setValue(third);
    driver.press(Qt::Key_Return);
    EXPECT_EQ(box.value(), third);
}

TEST_F(QScientificSpinBoxTest, HoldsWhatWasTypedThoughItShowsTheSame)
{
    box.show();
    double const third = 1.0 / 3.0;
    box.setValue(third);
    driver.type("0.333333");
    driver.press(Qt::Key_Return);
    EXPECT_EQ(box.value(), 0.333333);
    driver.press(Qt::Key_Return);
    EXPECT_EQ(box.value(), 0.333333);
    box.setValue(third);
    driver.press(Qt::Key_Return);
    EXPECT_EQ(box.value(), third) << "what was typed before is forgotten";
}

TEST_F(QScientificSpinBoxTest, KeepsEveryDigitThatIsTyped)
{
    box.show();
    driver.type("1.2345678901234567e-5");
    driver.press(Qt::Key_Return);
    EXPECT_EQ(box.value(), 1.2345678901234567e-5);
    EXPECT_EQ(driver.text(), "0.000012");
    driver.press(Qt::Key_Return);
    EXPECT_EQ(box.value(), 1.2345678901234567e-5);
    driver.type("5e-324");
    driver.press(Qt::Key_Return);
    EXPECT_EQ(box.value(), 5e-324);
    driver.type("-1.7976931348623157e308");
    driver.press(Qt::Key_Return);
    EXPECT_EQ(box.value(), -DBL_MAX);
}

TEST_F(QScientificSpinBoxTest, JudgesTextsAsNumbers)
{
    for (char const* const text : {"1", "-1", "+1.5", ".5", "1e5", "1E-5", "0.51", "1.5e+300"})
        EXPECT_EQ(judged(text), QValidator::Acceptable) << text;
    for (char const* const text : {" 4.5 ", "3.25\n", "\t-1\r\n"})
        EXPECT_EQ(judged(text), QValidator::Acceptable) << text;
    // None is invalid, or the key that makes it so would be swallowed.
    for (char const* const text :
         {"", "-", "1e", "1e-", ".", "x", "nan", "1,000", "12,5", "1 2", "--1", "1.2.3", "1e400"})
        EXPECT_EQ(judged(text), QValidator::Intermediate) << text;
}

TEST_F(QScientificSpinBoxTest, RestoresItsValueWhenTheTextIsNoNumber)
{
    box.show();
    box.setValue(2.5);
    for (char const* const text : {"", "1e", "-", "1e400", "abc", "12,5", "2*3", "1 5", "1,000"}) {
        driver.type(text);
        EXPECT_EQ(driver.text(), text) << "no key is swallowed";
        driver.press(Qt::Key_Return);
        EXPECT_EQ(driver.text(), "2.5") << text;
        EXPECT_EQ(box.value(), 2.5) << text;
    }
}

TEST_F(QScientificSpinBoxTest, TakesANumberThatIsPastedWithBlanksAround)
{
    box.show();
    for (auto const& [text, number] : {std::pair(" 4.5 ", 4.5), std::pair("3.25\n", 3.25), std::pair("\t-1\r\n", -1.0),
                                       std::pair("\u00a05\u202f\ufeff", 5.0)}) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        box.selectAll();
        driver.press(Qt::Key_V, Qt::ControlModifier);
        driver.press(Qt::Key_Return);
        EXPECT_EQ(box.value(), number);
    }
}

TEST_F(QScientificSpinBoxTest, ReadsAndWritesByTheDefaultLocale)
{
    QLocale const before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(box.textFromValue(1234.5), QStringLiteral("1234,5"));
    EXPECT_EQ(box.valueFromText(QStringLiteral("1234,5")), 1234.5);
    EXPECT_EQ(judged("0,5"), QValidator::Acceptable);
    EXPECT_NE(judged("1.000"), QValidator::Acceptable) << "no separator of groups";
    QLocale::setDefault(before);
}

TEST_F(QScientificSpinBoxTest, IsWideEnoughForItsLongestText)
{
    EXPECT_GT(box.sizeHint().width(), box.fontMetrics().horizontalAdvance(QStringLiteral("-1.797693e+308")));
}

} // namespace
} // namespace veldraw::tests

#include "dialogs/widgets/NumberValidators.h"

#include <QLineEdit>
#include <QLocale>

#include <charconv>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <system_error>

namespace veldraw::tests {
namespace {

using namespace veldraw::ui;

QValidator::State stateOf(QValidator& validator, QString text)
{
    validator.setLocale(QLocale::c());
    int position = 0;
    return validator.validate(text, position);
}

/// The blanks that come along when a number is copied from a web page, a table or the start of a file.
QString const blanks[] = {QStringLiteral(" "),    QStringLiteral("\t"),   QStringLiteral("\r\n"),
                          QString(QChar(0x00a0)), QString(QChar(0x202f)), QString(QChar(0xfeff)),
                          QString(QChar(0x2009)), QString(QChar(0x3000)), QString(QChar(0x200b)),
                          QString(QChar(0x2060)), QString(QChar(0x2028)), QStringLiteral(" \u00a0\t")};

TEST(NumberValidators, TakeANumberWithBlanksOfEachKindAround)
{
    NumberValidator real;
    WholeNumberValidator whole;
    SinglePrecisionValidator single;
    for (QString const& blank : blanks) {
        EXPECT_EQ(stateOf(real, blank + QStringLiteral("-1.5e3") + blank), QValidator::Acceptable)
            << blank.toStdString();
        EXPECT_EQ(stateOf(single, QStringLiteral("2.5") + blank), QValidator::Acceptable) << blank.toStdString();
        EXPECT_EQ(stateOf(whole, blank + QStringLiteral("42")), QValidator::Acceptable) << blank.toStdString();
        EXPECT_EQ(withoutBlanksAround(blank + QStringLiteral("7") + blank), QStringLiteral("7"));
    }
}

TEST(NumberValidators, RefuseBlanksWithinANumberAndBlanksAlone)
{
    NumberValidator real;
    WholeNumberValidator whole;
    for (QString const& blank : blanks) {
        EXPECT_EQ(stateOf(real, QStringLiteral("1") + blank + QStringLiteral("000")), QValidator::Intermediate);
        EXPECT_EQ(stateOf(whole, QStringLiteral("1") + blank + QStringLiteral("000")), QValidator::Intermediate);
        EXPECT_EQ(stateOf(real, blank), QValidator::Intermediate);
        EXPECT_EQ(withoutBlanksAround(blank), QString());
    }
}

TEST(NumberValidators, DropBlanksInAFieldForNumbersAndKeepWhetherItWasTyped)
{
    QLineEdit field;
    QString const text = QChar(0x00a0) + QStringLiteral("42") + QChar(0xfeff);
    field.setText(text);
    dropBlanksAround(field);
    EXPECT_EQ(field.text(), text) << "any text may stand in it";
    field.setValidator(new WholeNumberValidator(&field));
    field.setModified(true);
    dropBlanksAround(field);
    EXPECT_EQ(field.text(), QStringLiteral("42"));
    EXPECT_TRUE(field.isModified());
    field.setCursorPosition(1);
    dropBlanksAround(field);
    EXPECT_EQ(field.cursorPosition(), 1) << "nothing is written where there is nothing to drop";
}

std::string shortest(float number)
{
    char text[64];
    return std::string(text, std::to_chars(text, text + sizeof(text), number).ptr);
}

TEST(SinglePrecisionValidator, TakesTheShortestTextOfEveryFloat)
{
    SinglePrecisionValidator validator;
    constexpr float largest = std::numeric_limits<float>::max();
    ASSERT_EQ(shortest(largest), "3.4028235e+38");
    EXPECT_EQ(stateOf(validator, QString::fromStdString(shortest(largest))), QValidator::Acceptable);
    EXPECT_EQ(stateOf(validator, QString::fromStdString(shortest(-largest))), QValidator::Acceptable);
    std::mt19937 random(7);
    std::uniform_real_distribution<float> exponent(-38.0F, 38.5F);
    for (int count = 0; count < 5000; ++count) {
        float const number = (count % 2 != 0 ? -1.0F : 1.0F) * std::pow(10.0F, exponent(random));
        std::string const text = shortest(number);
        ASSERT_EQ(stateOf(validator, QString::fromStdString(text)), QValidator::Acceptable) << text;
    }
}

TEST(SinglePrecisionValidator, RefusesWhatWouldBecomeInfinite)
{
    SinglePrecisionValidator validator;
    for (char const* const text : {"3.40282357e+38", "3.5e38", "-3.5e38", "1e300", "1e400", "inf", "3.4028235e+38x"})
        EXPECT_NE(stateOf(validator, QLatin1String(text)), QValidator::Acceptable) << text;
    EXPECT_EQ(stateOf(validator, QStringLiteral("3.40282356e+38")), QValidator::Acceptable) << "nearer to the largest";
}

} // namespace
} // namespace veldraw::tests

#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/property/Property.h"
#include "tests/dialogs/bindings/FieldWindow.h"

#include <QLocale>

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <locale>
#include <random>
#include <string>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using testing::IsEmpty;

/// Numbers with a comma and with points between groups of digits, as German programs write them.
class GermanNumbers : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// All defaults of the process are German for the scope, as they are when nobody sets them on such a desktop.
class GermanDefaults
{
public:
    GermanDefaults()
        : m_streams(std::locale::global(std::locale(std::locale::classic(), new GermanNumbers)))
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }
    ~GermanDefaults()
    {
        QLocale::setDefault(m_qt);
        std::locale::global(m_streams);
    }
    GermanDefaults(GermanDefaults const&) = delete;
    GermanDefaults& operator=(GermanDefaults const&) = delete;

private:
    QLocale const m_qt;
    std::locale const m_streams;
};

/// Default locales a process may run with.
class TextFieldLocale : public ::testing::TestWithParam<bool>
{
protected:
    void SetUp() override
    {
        if (GetParam())
            german = std::make_unique<GermanDefaults>();
    }

    std::unique_ptr<GermanDefaults> german;
    FieldWindow window;
};

INSTANTIATE_TEST_SUITE_P(Defaults, TextFieldLocale, ::testing::Bool(),
                         [](auto const& tested) { return tested.param ? "German" : "English"; });

TEST_P(TextFieldLocale, DoesNotChangeHowNumbersAreWritten)
{
    auto const number = boost::make_shared<Property<double>>(1234.5);
    auto const count = boost::make_shared<Property<long long>>(1234567890123LL);
    TextFieldPropertyBinding<double> const numberField(window.field, number);
    TextFieldPropertyBinding<long long> const countField(window.after, count);
    EXPECT_EQ(window.shown(), "1234.5");
    EXPECT_EQ(window.after->text(), QStringLiteral("1234567890123"));
}

TEST_P(TextFieldLocale, DoesNotChangeHowNumbersAreRead)
{
    auto const number = boost::make_shared<Property<double>>(0.0);
    auto const count = boost::make_shared<Property<int>>(0);
    TextFieldPropertyBinding<double> const numberField(window.field, number);
    window.enter("1234.5");
    EXPECT_EQ(number->value(), 1234.5);
    EXPECT_EQ(window.shown(), "1234.5");
    TextFieldPropertyBinding<int> const countField(window.after, count);
    window.after->setFocus();
    window.after->selectAll();
    QTest::keyClicks(window.after, QStringLiteral("1234567"));
    QTest::keyClick(window.after, Qt::Key_Return);
    EXPECT_EQ(count->value(), 1234567);
    EXPECT_EQ(window.after->text(), QStringLiteral("1234567"));
}

TEST_P(TextFieldLocale, NeverMakesACommaPartOfANumber)
{
    auto const number = boost::make_shared<Property<double>>(2.0);
    TextFieldPropertyBinding<double> const binding(window.field, number);
    window.type("1,5");
    EXPECT_EQ(window.shown(), "1,5") << "no key is swallowed";
    for (char const* const text : {"1,5", "1,000", "1.000,5", "1 000", "1'000", "0,5"}) {
        window.field->setText(QString::fromUtf8(text));
        window.press(Qt::Key_Return);
        EXPECT_EQ(number->value(), 2.0) << text;
        EXPECT_EQ(window.shown(), "2") << text;
    }
    EXPECT_THAT(window.messages.take(), IsEmpty());
}

TEST_P(TextFieldLocale, TakesTheDigitsOfOtherScriptsForNone)
{
    auto const number = boost::make_shared<Property<double>>(2.0);
    TextFieldPropertyBinding<double> const binding(window.field, number);
    window.field->setFocus();
    for (char const* const text : {"\xD9\xA1", "\xEF\xBC\x95", "\xE2\x88\x92\x35",
                                   "1\xE2\x80\x89"
                                   "0"}) {
        window.field->setText(QString::fromUtf8(text));
        window.press(Qt::Key_Return);
        EXPECT_EQ(number->value(), 2.0) << text;
    }
}

// Whatever the field's validator lets pass is read as a whole, or not at all.
TEST_P(TextFieldLocale, NeverReadsHalfOfAText)
{
    std::mt19937 random(20261121);
    std::string const alphabet = "0123456789..,,ee+-- 'xn";
    auto const number = boost::make_shared<Property<double>>(0.0);
    TextFieldPropertyBinding<double> const binding(window.field, number);
    window.field->setFocus();
    int taken = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (std::size_t length = 1 + random() % 7; text.size() < length;)
            text += alphabet[random() % alphabet.size()];
        number->setValue(-123.0);
        window.field->setText(QString::fromStdString(text));
        window.press(Qt::Key_Return);
        if (number->value() == -123.0)
            continue;
        ++taken;
        bool isNumber = false;
        EXPECT_EQ(number->value(), QLocale::c().toDouble(QString::fromStdString(text), &isNumber)) << text;
        EXPECT_TRUE(isNumber) << text;
    }
    EXPECT_GT(taken, 500);
}

} // namespace
} // namespace veldraw::tests

#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "platform/exception/IOException.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/bindings/FieldWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QDoubleValidator>
#include <QKeyEvent>
#include <QMessageBox>
#include <QRegularExpressionValidator>
#include <QTimer>

#include <boost/make_shared.hpp>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

/// A way to finish with a field, by its name.
struct Ending
{
    char const* name;
    std::function<void(FieldWindow&)> run;
};

void PrintTo(Ending const& ending, std::ostream* out)
{
    *out << ending.name;
}

/// A number from 0 to 0.5 in a field whose text is refused in each of the ways to finish with it.
class RefusedText : public ::testing::TestWithParam<Ending>
{
protected:
    using Validator = BoundedValueValidator<double>;

    void SetUp() override
    {
        property->connectValueChanged([this](double) { ++changes; });
    }

    void expectRestored(char const* text)
    {
        EXPECT_EQ(window.shown(), text);
        EXPECT_FALSE(window.field->isModified());
        expectUnchanged();
    }

    void expectUnchanged()
    {
        EXPECT_EQ(property->value(), 0.25);
        EXPECT_EQ(changes, 0);
        EXPECT_EQ(window.clicks, 0);
        EXPECT_EQ(sdk::AppLock::depth(), 0);
    }

    FieldWindow window;
    boost::shared_ptr<Property<double>> const property = boost::make_shared<Property<double>>(
        0.25, boost::make_shared<Validator>(0.0, 0.5, Validator::LowerInclusive, Validator::UpperInclusive));
    TextFieldPropertyBinding<double> binding{window.field, property};
    int changes = 0;
};

INSTANTIATE_TEST_SUITE_P(
    InEachWay, RefusedText,
    ::testing::Values(Ending{"Return", [](FieldWindow& window) { window.press(Qt::Key_Return); }},
                      Ending{"Enter", [](FieldWindow& window) { window.press(Qt::Key_Enter); }},
                      Ending{"Tab", [](FieldWindow& window) { window.press(Qt::Key_Tab); }},
                      Ending{"Backtab", [](FieldWindow& window) { window.press(Qt::Key_Backtab); }},
                      Ending{"ClickOnAnotherField",
                             [](FieldWindow& window) { QTest::mouseClick(window.after, Qt::LeftButton); }}),
    [](auto const& tested) { return std::string(tested.param.name); });

TEST_P(RefusedText, IsSilentlyReplacedWhenTheFieldsValidatorWantsMore)
{
    for (char const* const text : {"", "-", "+", ".", "1e", "1e-", "0,5", "0.1*3", "0 1", "1.2.3", "x"}) {
        window.type(text);
        ASSERT_EQ(window.shown(), text) << "no key is swallowed";
        GetParam().run(window);
        expectRestored("0.25");
        EXPECT_TRUE(window.field->hasFocus()) << text;
    }
    EXPECT_THAT(window.messages.take(), IsEmpty());
}

TEST_P(RefusedText, IsToldAndReplacedWhenThePropertyRefusesIt)
{
    window.type("0.51");
    GetParam().run(window);
    EXPECT_THAT(window.messages.take(), ElementsAre("error: The value must be greater than or equal to 0 and less than "
                                                    "or equal to 0.5."));
    expectRestored("0.25");
    EXPECT_TRUE(window.field->hasFocus());
    IdleDispatcher::flush();
    expectRestored("0.25");
}

TEST_P(RefusedText, StaysInTheFieldWithoutAWordWhenItCannotBeRead)
{
    window.field->setValidator(new QRegularExpressionValidator(window.field));
    window.type("abc");
    GetParam().run(window);
    EXPECT_EQ(window.shown(), "abc");
    EXPECT_THAT(window.messages.take(), IsEmpty());
    expectUnchanged();
    IdleDispatcher::flush();
    EXPECT_EQ(window.shown(), "abc");
}

TEST_P(RefusedText, IsSilentlyReplacedWhenTheRefusalHasNoText)
{
    class Silent : public Property<double>
    {
    protected:
        void validate(double const&) const override { throw InvalidPropertyValueException(std::string()); }
    };
    auto const silent = boost::make_shared<Silent>();
    TextFieldPropertyBinding<double> const other(window.field, silent);
    window.type("0.1");
    GetParam().run(window);
    EXPECT_THAT(window.messages.take(), IsEmpty());
    EXPECT_EQ(silent->value(), 0.0);
    EXPECT_EQ(window.shown(), "0");
    EXPECT_TRUE(window.field->hasFocus());
}

TEST_P(RefusedText, MayBeCorrected)
{
    window.type("0.51");
    GetParam().run(window);
    window.messages.take();
    window.type("0.5");
    GetParam().run(window);
    EXPECT_EQ(property->value(), 0.5);
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(window.messages.take(), IsEmpty());
}

// The box takes the focus from the field, which must not take the same text a second time.
TEST_P(RefusedText, IsToldOnceInARealMessageBox)
{
    int boxes = 0;
    auto const previous = host::MessagePresenter::install([this, &boxes](std::string const& text, MessageBoxType_e) {
        ++boxes;
        EXPECT_EQ(window.shown(), "0.51") << "what is refused stays in view while its reason is read";
        QMessageBox box(&window.dialog);
        box.setText(QString::fromStdString(text));
        QTimer::singleShot(0, &box, [this, &box] {
            box.activateWindow();
            ASSERT_TRUE(QTest::qWaitFor([&box] { return QApplication::activeWindow() == &box; }));
            EXPECT_FALSE(window.field->hasFocus());
            QTest::keyClick(&box, Qt::Key_Return);
        });
        box.exec();
    });
    window.type("0.51");
    GetParam().run(window);
    host::MessagePresenter::install(previous);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window.dialog));
    EXPECT_EQ(boxes, 1);
    expectRestored("0.25");
    EXPECT_TRUE(window.field->hasFocus());
}

/// The same number in a field with a validator of the form's.
class FieldOfTheForm : public ::testing::Test
{
protected:
    using Validator = BoundedValueValidator<double>;

    void expectRestored()
    {
        EXPECT_EQ(window.shown(), "0.25");
        EXPECT_EQ(property->value(), 0.25);
        EXPECT_THAT(window.messages.take(), IsEmpty());
    }
    void put(char const* text)
    {
        window.field->setText(QString::fromUtf8(text));
        window.field->setFocus();
        window.press(Qt::Key_Return);
    }

    FieldWindow window;
    boost::shared_ptr<Validator> const limits =
        boost::make_shared<Validator>(0.0, 0.5, Validator::LowerInclusive, Validator::UpperInclusive);
    boost::shared_ptr<Property<double>> const property = boost::make_shared<Property<double>>(0.25, limits);
    TextFieldPropertyBinding<double> binding{window.field, property};
};

TEST_F(FieldOfTheForm, TakesTheTextItselfAndNotWhatTheValidatorMadeOfIt)
{
    class Fixing : public QValidator
    {
    public:
        using QValidator::QValidator;
        State validate(QString& text, int&) const override
        {
            return text == QStringLiteral("0.125") ? Acceptable : Invalid;
        }
        void fixup(QString& text) const override { text = QStringLiteral("0.125"); }
    };
    window.field->setValidator(new Fixing(window.field));
    put("0.5 m");
    EXPECT_EQ(property->value(), 0.5);
    EXPECT_EQ(window.shown(), "0.5");
}

TEST_F(FieldOfTheForm, IsNotMendedWhereMoreIsWanted)
{
    class Unfinished : public QValidator
    {
    public:
        using QValidator::QValidator;
        State validate(QString&, int&) const override { return Intermediate; }
        void fixup(QString&) const override { ++fixups; }
        mutable int fixups = 0;
    };
    auto* const validator = new Unfinished(window.field);
    window.field->setValidator(validator);
    put("0.5");
    EXPECT_EQ(validator->fixups, 0);
    expectRestored();
}

TEST_F(FieldOfTheForm, IsHeldToTheFormsLimitsWithoutAWord)
{
    auto* const validator = new QDoubleValidator(0.0, 0.4, 2, window.field);
    validator->setNotation(QDoubleValidator::StandardNotation);
    window.field->setValidator(validator);
    put("0.45");
    expectRestored();
    put("0.4");
    EXPECT_EQ(property->value(), 0.4);
}

TEST_F(FieldOfTheForm, RefusesALeadingBlankWithoutAWordIfItsValidatorLetsItPass)
{
    window.field->setValidator(nullptr);
    put(" 0.4");
    EXPECT_EQ(window.shown(), " 0.4");
    EXPECT_EQ(property->value(), 0.25);
    put("0.4 ");
    EXPECT_EQ(property->value(), 0.4);
    EXPECT_EQ(window.shown(), "0.4");
    EXPECT_THAT(window.messages.take(), IsEmpty());
}

/// Lets every text pass and notes how deep the application was locked then.
class NotingValidator : public QValidator
{
public:
    using QValidator::QValidator;
    State validate(QString&, int&) const override
    {
        depths.push_back(sdk::AppLock::depth());
        return Acceptable;
    }
    mutable std::vector<int> depths;
};

TEST_F(FieldOfTheForm, IsCheckedToldOfAndWrittenUnderTheLock)
{
    auto* const validator = new NotingValidator(window.field);
    window.field->setValidator(validator);
    window.field->setText(QStringLiteral("0.6"));
    window.field->setFocus();
    validator->depths.clear();
    std::vector<int> told;
    std::vector<int> written;
    QObject const listening;
    QObject::connect(window.field, &QLineEdit::textChanged, &listening,
                     [&written] { written.push_back(sdk::AppLock::depth()); });
    auto const previous =
        host::MessagePresenter::install([&told](auto const&...) { told.push_back(sdk::AppLock::depth()); });
    window.press(Qt::Key_Return);
    host::MessagePresenter::install(previous);
    EXPECT_FALSE(validator->depths.empty());
    EXPECT_THAT(validator->depths, Each(1));
    EXPECT_THAT(told, ElementsAre(1));
    EXPECT_THAT(written, ElementsAre(1));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(FieldOfTheForm, ComesToTheFrontWithItsWindowWhenItIsRefused)
{
    QWidget other;
    other.show();
    for (char const* const text : {"0.6", "-"}) {
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        put(text);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window.dialog)) << text;
        EXPECT_TRUE(window.field->hasFocus()) << text;
    }
    EXPECT_EQ(window.messages.take().size(), 1u);
}

TEST_F(FieldOfTheForm, TellsOnReturnThatAValueIsNoLongerValid)
{
    limits->resetMinMaxValue(1.0, 2.0);
    window.field->setFocus();
    window.press(Qt::Key_Return);
    EXPECT_THAT(window.messages.take(), ElementsAre("error: The value must be greater than or equal to 1 and less than "
                                                    "or equal to 2."));
    EXPECT_EQ(property->value(), 0.25);
}

TEST(WholeNumberField, ReplacesWhatIsNoWholeNumber)
{
    FieldWindow window;
    auto const count = boost::make_shared<Property<int>>(7);
    TextFieldPropertyBinding<int> const binding(window.field, count);
    for (char const* const text :
         {"1.5", "1,000", "1,5", "1e3", "2147483648", "-2147483649", "2*3", "5 5", "0x5", "abc", "-", ""}) {
        window.type(text);
        EXPECT_EQ(window.shown(), text) << "no key is swallowed";
        window.press(Qt::Key_Return);
        EXPECT_EQ(window.shown(), "7") << text;
    }
    EXPECT_EQ(count->value(), 7);
    EXPECT_THAT(window.messages.take(), IsEmpty());
}

// Qt's validator for whole numbers ends with `int`, and so does what can be typed.
TEST(LongNumberField, ShowsMoreThanCanBeTyped)
{
    FieldWindow window;
    auto const count = boost::make_shared<Property<long long>>(4611686018427387903LL);
    TextFieldPropertyBinding<long long> const binding(window.field, count);
    EXPECT_EQ(window.shown(), "4611686018427387903");
    window.field->setFocus();
    window.press(Qt::Key_Return);
    window.field->setText(QStringLiteral("2147483648"));
    window.press(Qt::Key_Return);
    EXPECT_EQ(window.shown(), "4611686018427387903");
    window.enter("2147483647");
    EXPECT_EQ(count->value(), 2147483647);
}

/// Pastes over what the field shows and presses Return.
void paste(FieldWindow& window, char const* text)
{
    QApplication::clipboard()->setText(QString::fromUtf8(text));
    window.field->setFocus();
    window.field->selectAll();
    QTest::keyClick(window.field, Qt::Key_V, Qt::ControlModifier);
    window.press(Qt::Key_Return);
}

TEST(PastedText, CountsAsItsNumberWithBlanksAround)
{
    FieldWindow window;
    auto const number = boost::make_shared<Property<double>>(1.0);
    TextFieldPropertyBinding<double> const binding(window.field, number);
    paste(window, " 4.5 ");
    EXPECT_EQ(number->value(), 4.5);
    EXPECT_EQ(window.shown(), "4.5");
    paste(window, "3.25\n");
    EXPECT_EQ(number->value(), 3.25);
    paste(window, "\t-1e3\r\n");
    EXPECT_EQ(number->value(), -1000.0);
    paste(window, "\u00a02\u202f");
    EXPECT_EQ(number->value(), 2.0);
    paste(window, "\u00a0\ufeff7.5");
    EXPECT_EQ(number->value(), 7.5);
    EXPECT_EQ(window.shown(), "7.5");
    paste(window, "1 2");
    EXPECT_EQ(number->value(), 7.5);
}

TEST(PastedText, CountsAsItsWholeNumberWithBlanksAround)
{
    FieldWindow window;
    auto const count = boost::make_shared<Property<long long>>(1);
    TextFieldPropertyBinding<long long> const binding(window.field, count);
    paste(window, " 12\n");
    EXPECT_EQ(count->value(), 12);
    EXPECT_EQ(window.shown(), "12");
}

TEST(PastedText, KeepsItsBlanksInATextField)
{
    FieldWindow window;
    auto const title = boost::make_shared<Property<std::string>>();
    TextFieldPropertyBinding<std::string> const binding(window.field, title);
    paste(window, " a ");
    EXPECT_EQ(title->value(), " a ");
}

/// Throws something when it is set.
template <typename Exception>
class Throwing : public Property<double>
{
protected:
    void storeValue(double const&) override { throw Exception("no"); }
};

TEST(RefusedTextExceptions, SwallowsThatAnArgumentIsInvalid)
{
    FieldWindow window;
    TextFieldPropertyBinding<double> const binding(window.field,
                                                   boost::make_shared<Throwing<InvalidArgumentException>>());
    window.enter("5");
    EXPECT_EQ(window.shown(), "5");
    EXPECT_THAT(window.messages.take(), IsEmpty());
}

TEST(RefusedTextExceptions, LetsOthersPassWithTheLockReleased)
{
    FieldWindow window;
    TextFieldPropertyBinding<double> const binding(window.field, boost::make_shared<Throwing<IOException>>());
    window.type("5");
    EXPECT_THROW(window.leave(), IOException);
    EXPECT_EQ(sdk::AppLock::depth(), 0);
    EXPECT_EQ(window.shown(), "5");
    EXPECT_THAT(window.messages.take(), IsEmpty());
    EXPECT_THROW(window.leave(), IOException);
}

} // namespace
} // namespace veldraw::tests

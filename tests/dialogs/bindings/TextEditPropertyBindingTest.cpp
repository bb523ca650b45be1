#include "dialogs/bindings/TextEditPropertyBinding.h"

#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/property/Property.h"
#include "host/MessagePresenter.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/RecordedMessages.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Refuses what contains an "x".
class NoX : public virtual ValidatorInterface<std::string>
{
public:
    ValidationResult validate(std::string const& value) const override
    {
        ValidationResult result;
        if (value.find('x') != std::string::npos)
            result.setErrorString("No x, please.");
        return result;
    }
};

class TextEditPropertyBindingTest : public ::testing::Test
{
protected:
    TextEditPropertyBindingTest()
    {
        auto* const layout = new QVBoxLayout(&window);
        field = new QTextEdit(&window);
        elsewhere = new QLineEdit(&window);
        button = new QPushButton(QStringLiteral("&Run"), &window);
        for (QWidget* const widget :
             {static_cast<QWidget*>(field), static_cast<QWidget*>(elsewhere), static_cast<QWidget*>(button)})
            layout->addWidget(widget);
    }

    void bind(bool readOnly = false)
    {
        binding = std::make_unique<TextEditPropertyBinding>(field, property, readOnly);
        property->connectValueChanged([this](std::string const& value) { changes.push_back(value); });
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field->setFocus();
    }

    void type(char const* text)
    {
        field->setFocus();
        QTest::keyClick(field, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(field, QString::fromUtf8(text));
    }

    void clickElsewhere() { QTest::mouseClick(elsewhere, Qt::LeftButton); }
    std::vector<std::string> take() { return std::exchange(changes, {}); }
    std::string text() const { return field->toPlainText().toStdString(); }

    QWidget window;
    QTextEdit* field = nullptr;
    QLineEdit* elsewhere = nullptr;
    QPushButton* button = nullptr;
    boost::shared_ptr<PropertyAbstract<std::string>> property =
        boost::make_shared<Property<std::string>>("one\ntwo", boost::make_shared<NoX>());
    std::unique_ptr<TextEditPropertyBinding> binding;
    std::vector<std::string> changes;
    RecordedMessages messages;
};

TEST_F(TextEditPropertyBindingTest, ShowsTheTextFromTheStartAndFollowsItAtIdle)
{
    bind();
    EXPECT_EQ(text(), "one\ntwo");
    property->setValue("<b>a</b> & ü\nb");
    EXPECT_EQ(text(), "one\ntwo");
    IdleDispatcher::flush();
    EXPECT_EQ(text(), "<b>a</b> & ü\nb");
}

TEST_F(TextEditPropertyBindingTest, SetsThePropertyOnceByTab)
{
    bind();
    type(" three");
    EXPECT_THAT(take(), IsEmpty());
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_THAT(take(), IsEmpty()) << "begins a line";
    QTest::keyClicks(field, QStringLiteral("four"));
    QTest::keyClick(field, Qt::Key_Tab);
    EXPECT_TRUE(elsewhere->hasFocus());
    EXPECT_THAT(take(), ElementsAre("one\ntwo three\nfour"));
}

TEST_F(TextEditPropertyBindingTest, SetsThePropertyOnceByAClickElsewhere)
{
    bind();
    type("!");
    clickElsewhere();
    EXPECT_THAT(take(), ElementsAre("one\ntwo!"));
    IdleDispatcher::flush();
    field->setFocus();
    clickElsewhere();
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(TextEditPropertyBindingTest, DropsUnfinishedTextWhenItsWindowGoesOffTheScreen)
{
    bind();
    type(" unfinished");
    window.hide();
    EXPECT_EQ(text(), "one\ntwo");
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(TextEditPropertyBindingTest, SetsNothingWithoutAnEdit)
{
    bind();
    clickElsewhere();
    type("a");
    QTest::keyClick(field, Qt::Key_Backspace);
    clickElsewhere();
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(TextEditPropertyBindingTest, WaitsWhileTheFocusIsOnlyLent)
{
    bind();
    type("!");
    for (Qt::FocusReason const reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        QFocusEvent event(QEvent::FocusOut, reason);
        QApplication::sendEvent(field, &event);
        EXPECT_THAT(take(), IsEmpty()) << reason;
    }
    clickElsewhere();
    EXPECT_THAT(take(), ElementsAre("one\ntwo!"));
}

TEST_F(TextEditPropertyBindingTest, CommitsBeforeAButtonRuns)
{
    std::vector<std::string> runs;
    ButtonBinding const run(*button, [&] { runs.push_back(property->value()); });
    bind();
    type("!");
    QTest::keyClick(field, Qt::Key_R, Qt::AltModifier);
    QTest::qWait(200); // a mnemonic presses the button for a moment
    EXPECT_THAT(runs, ElementsAre("one\ntwo!"));
    type("x");
    QTest::keyClick(field, Qt::Key_R, Qt::AltModifier);
    QTest::qWait(200);
    EXPECT_EQ(runs.size(), 1U);
    EXPECT_THAT(messages.take(), ElementsAre("error: No x, please."));
}

TEST_F(TextEditPropertyBindingTest, TellsARefusalOnceRestoresTheTextAndKeepsTheFocus)
{
    bind();
    type("x");
    clickElsewhere();
    EXPECT_THAT(messages.take(), ElementsAre("error: No x, please."));
    EXPECT_EQ(text(), "one\ntwo");
    EXPECT_TRUE(field->hasFocus());
    EXPECT_THAT(take(), IsEmpty());
    IdleDispatcher::flush();
    clickElsewhere();
    EXPECT_THAT(messages.take(), IsEmpty());
}

/// Takes every text for the one it has, and tells nothing.
class UnmovedText : public Property<std::string>
{
public:
    using Property<std::string>::Property;

protected:
    bool isEqual(std::string const&) const override { return true; }
};

TEST_F(TextEditPropertyBindingTest, ShowsThePropertyAgainAfterATextThatItTakesForEqual)
{
    property = boost::make_shared<UnmovedText>("one");
    bind();
    type("!");
    clickElsewhere();
    EXPECT_THAT(take(), IsEmpty());
    IdleDispatcher::flush();
    EXPECT_EQ(text(), "one");
}

TEST_F(TextEditPropertyBindingTest, ComesBackToTheFrontAfterARefusal)
{
    QWidget other;
    auto const recorder = host::MessagePresenter::install([&other](std::string const&, MessageBoxType_e) {
        other.show();
        other.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    });
    bind();
    type("x");
    clickElsewhere();
    host::MessagePresenter::install(recorder);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(field->hasFocus());
}

TEST_F(TextEditPropertyBindingTest, TakesTheWordsOfPastedMarkupOnly)
{
    auto* const pasted = new QMimeData;
    pasted->setHtml(QStringLiteral("<b>bold</b>"));
    pasted->setText(QStringLiteral(" bold"));
    QApplication::clipboard()->setMimeData(pasted);
    bind();
    type("");
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field->textCursor().charFormat().fontWeight(), QFont::Normal);
    clickElsewhere();
    EXPECT_THAT(take(), ElementsAre("one\ntwo bold"));
}

TEST_F(TextEditPropertyBindingTest, CanOnlyBeReadWhenItIsReadOnly)
{
    bind(true);
    EXPECT_TRUE(field->isReadOnly());
    type("abc");
    QTest::keyClick(field, Qt::Key_Delete);
    EXPECT_EQ(text(), "one\ntwo");
    QTest::keyClick(field, Qt::Key_Tab);
    EXPECT_TRUE(elsewhere->hasFocus());
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(TextEditPropertyBindingTest, KeepsItsPlaceWhenTheTextStaysTheSame)
{
    std::string lines;
    for (int i = 0; i < 500; ++i)
        lines += "line\n";
    property->setValue(lines);
    bind(true);
    field->verticalScrollBar()->setValue(1000);
    property->setValue("other");
    property->setValue(lines);
    IdleDispatcher::flush();
    EXPECT_EQ(field->verticalScrollBar()->value(), 1000);
}

TEST_F(TextEditPropertyBindingTest, MayGoWhileAWriteIsPending)
{
    bind();
    property->setValue("three");
    type("!");
    binding.reset();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    clickElsewhere();
    EXPECT_EQ(property->value(), "three");
}

TEST_F(TextEditPropertyBindingTest, OutlivesAFieldThatIsDestroyedWithTypedText)
{
    bind();
    type("!");
    delete field;
    property->setValue("three");
    IdleDispatcher::flush();
    EXPECT_THAT(take(), ElementsAre("three"));
}

TEST_F(TextEditPropertyBindingTest, MayBeDestroyedByAListenerOfItsOwnCommit)
{
    bind();
    property->connectValueChanged([this](std::string const&) { binding.reset(); });
    type("!");
    clickElsewhere();
    EXPECT_EQ(property->value(), "one\ntwo!");
    EXPECT_EQ(binding, nullptr);
}

} // namespace
} // namespace veldraw::tests

#include "dialogs/bindings/ButtonBinding.h"

#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {
namespace {

using sdk::ui::dialogs::propertybindings::ButtonBinding;
using testing::ElementsAre;
using testing::IsEmpty;

class ButtonBindingTest : public testing::Test
{
protected:
    ButtonBindingTest()
    {
        auto* const layout = new QVBoxLayout(&window);
        field = new QLineEdit(&window);
        number = new QDoubleSpinBox(&window);
        button = new QPushButton(QStringLiteral("&Run"), &window);
        for (QWidget* const widget :
             {static_cast<QWidget*>(field), static_cast<QWidget*>(number), static_cast<QWidget*>(button)})
            layout->addWidget(widget);
        binding = std::make_unique<ButtonBinding>(*button, [this] { log.emplace_back("run"); });
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void pressMnemonic() { QTest::keyClick(window.focusWidget(), Qt::Key_R, Qt::AltModifier); }

    QWidget window;
    QLineEdit* field = nullptr;
    QDoubleSpinBox* number = nullptr;
    QPushButton* button = nullptr;
    std::vector<std::string> log;
    std::unique_ptr<ButtonBinding> binding;
};

TEST_F(ButtonBindingTest, RunsItsFunctionOnceByMouseKeyAndMnemonic)
{
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_THAT(log, ElementsAre("run"));
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_THAT(log, ElementsAre("run", "run"));
    pressMnemonic();
    QTest::qWait(150); // a mnemonic presses the button for a moment
    EXPECT_THAT(log, ElementsAre("run", "run", "run"));
}

TEST_F(ButtonBindingTest, LetsItsFunctionEndIt)
{
    auto held = std::make_shared<int>(7);
    std::weak_ptr<int> const watched = held;
    binding = std::make_unique<ButtonBinding>(*button, [this, watched, kept = std::move(held)] {
        binding.reset();
        EXPECT_FALSE(watched.expired()) << "what the function holds lasts until it returns";
        log.emplace_back("ended");
    });
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_THAT(log, ElementsAre("ended"));
    EXPECT_TRUE(watched.expired());
}

TEST_F(ButtonBindingTest, DoesNotRunWhileTheButtonIsDisabled)
{
    button->setEnabled(false);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(ButtonBindingTest, CommitsWhatWasTypedBeforeItRuns)
{
    QObject::connect(field, &QLineEdit::editingFinished, &window, [this] { log.emplace_back("commit"); });
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("12"));
    pressMnemonic();
    QTest::qWait(150);
    EXPECT_THAT(log, ElementsAre("commit", "run"));
}

TEST_F(ButtonBindingTest, CommitsATypedNumberBeforeItRuns)
{
    number->setKeyboardTracking(false);
    number->setFocus();
    number->selectAll();
    QTest::keyClicks(number, QStringLiteral("7"));
    button->animateClick(0);
    QTest::qWait(50);
    EXPECT_THAT(log, ElementsAre("run"));
    EXPECT_EQ(number->value(), 7.0);
}

TEST_F(ButtonBindingTest, DoesNotRunWhenTheFieldRefusesWhatWasTyped)
{
    QObject::connect(field, &QLineEdit::editingFinished, &window, [this] {
        log.emplace_back("refused");
        field->setFocus();
    });
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("x"));
    pressMnemonic();
    QTest::qWait(150);
    EXPECT_THAT(log, ElementsAre("refused"));
    EXPECT_EQ(window.focusWidget(), field);
}

TEST_F(ButtonBindingTest, LeavesTheFocusAloneWhenNoTextIsPending)
{
    auto* const other = new QPushButton(&window);
    window.layout()->addWidget(other);
    other->show();
    other->setFocus();
    button->click();
    EXPECT_EQ(window.focusWidget(), other);
    EXPECT_THAT(log, ElementsAre("run"));
}

TEST_F(ButtonBindingTest, MayBeDestroyedByTheCommitOfWhatWasTyped)
{
    QObject::connect(field, &QLineEdit::editingFinished, &window, [this] { binding.reset(); });
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("x"));
    button->click();
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(ButtonBindingTest, EndsTheConnectionWithItself)
{
    binding.reset();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_THAT(log, IsEmpty());
}

} // namespace
} // namespace veldraw::tests

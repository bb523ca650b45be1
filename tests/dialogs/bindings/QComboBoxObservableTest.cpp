#include "dialogs/bindings/QComboBoxObservable.h"

#include "dialogs/bindings/QButtonObservable.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;

/// Writes down "<name><row> " for each row it is told.
class ComboBoxListener : public QComboBoxListenerInterface
{
public:
    ComboBoxListener(std::string name, std::string& log)
        : m_name(std::move(name))
        , m_log(log)
    {
    }
    void currentIndexChanged(int index) override
    {
        m_log += m_name + std::to_string(index) + " ";
        if (then)
            then();
    }

    std::function<void()> then;

private:
    std::string const m_name;
    std::string& m_log;
};

class QComboBoxObservableTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        comboBox->addItems({QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")});
        observable->addListener(&first);
        observable->addListener(&second);
    }

    std::string told;
    ComboBoxListener first{"a", told};
    ComboBoxListener second{"b", told};
    std::unique_ptr<QComboBox> comboBox = std::make_unique<QComboBox>();
    std::unique_ptr<QComboBoxObservable> observable = std::make_unique<QComboBoxObservable>(comboBox.get());
};

TEST_F(QComboBoxObservableTest, TellsItsListenersInTheOrderOfTheirComing)
{
    told.clear();
    comboBox->setCurrentIndex(2);
    EXPECT_EQ(told, "a2 b2 ");
}

TEST_F(QComboBoxObservableTest, TellsWhatAPersonAndWhatTheProgramDoes)
{
    told.clear();
    QTest::keyClick(comboBox.get(), Qt::Key_Down);
    comboBox->setCurrentIndex(-1);
    EXPECT_EQ(told, "a1 b1 a-1 b-1 ");
}

TEST_F(QComboBoxObservableTest, TellsNothingWhenTheRowStays)
{
    told.clear();
    comboBox->setCurrentIndex(0);
    EXPECT_EQ(told, "");
}

TEST_F(QComboBoxObservableTest, TellsAListenerThatCameTwiceOnce)
{
    observable->addListener(&first);
    told.clear();
    comboBox->setCurrentIndex(1);
    EXPECT_EQ(told, "a1 b1 ");
}

TEST_F(QComboBoxObservableTest, TellsNothingToAListenerThatLeftMeanwhile)
{
    first.then = [this] { observable->removeListener(&second); };
    told.clear();
    comboBox->setCurrentIndex(1);
    EXPECT_EQ(told, "a1 ");
}

TEST_F(QComboBoxObservableTest, TellsAListenerThatCameMeanwhileFromTheNextTimeOn)
{
    ComboBoxListener third("c", told);
    first.then = [&] { observable->addListener(&third); };
    told.clear();
    comboBox->setCurrentIndex(1);
    EXPECT_EQ(told, "a1 b1 ");
    comboBox->setCurrentIndex(2);
    EXPECT_EQ(told, "a1 b1 a2 b2 c2 ");
}

TEST_F(QComboBoxObservableTest, MayBeDestroyedByAListener)
{
    first.then = [this] { observable.reset(); };
    told.clear();
    comboBox->setCurrentIndex(1);
    EXPECT_EQ(told, "a1 ");
}

TEST_F(QComboBoxObservableTest, LetsWhatAListenerThrowsThroughAndGoesOnNextTime)
{
    first.then = [this] {
        first.then = nullptr;
        throw std::runtime_error("no");
    };
    told.clear();
    // By its signal alone: Qt's widgets lose the memory that they hold when an exception passes them.
    EXPECT_THROW(Q_EMIT comboBox->currentIndexChanged(1), std::runtime_error);
    comboBox->setCurrentIndex(2);
    EXPECT_EQ(told, "a1 a2 b2 ");
}

TEST_F(QComboBoxObservableTest, StandsAComboBoxThatGoesFirst)
{
    told.clear();
    comboBox.reset();
    EXPECT_EQ(told, "");
    observable->removeListener(&first);
}

/// Writes down the text and the state of the button that it is told of.
class ButtonListener : public QButtonListenerInterface
{
public:
    void buttonStateChanged(QButtonObservable& observable) override
    {
        QAbstractButton const& button = *observable.buttonWidget();
        told += button.text().toStdString() + (button.isChecked() ? " on; " : " off; ");
    }
    std::string told;
};

class QButtonObservableTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(left);
        layout->addWidget(right);
        left->setChecked(true);
        leftObservable.addListener(&listener);
        rightObservable.addListener(&listener);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        left->setFocus();
    }

    QWidget window;
    QRadioButton* const left = new QRadioButton(QStringLiteral("left"));
    QRadioButton* const right = new QRadioButton(QStringLiteral("right"));
    QButtonObservable leftObservable{left};
    QButtonObservable rightObservable{right};
    ButtonListener listener;
};

TEST_F(QButtonObservableTest, TellsBothButtonsOfAGroup)
{
    QTest::mouseClick(right, Qt::LeftButton, Qt::NoModifier, QPoint(8, right->height() / 2));
    EXPECT_EQ(listener.told, "left off; right on; ");
}

TEST_F(QButtonObservableTest, TellsArrowKeys)
{
    QTest::keyClick(left, Qt::Key_Down);
    EXPECT_EQ(listener.told, "left off; right on; ");
}

TEST_F(QButtonObservableTest, TellsNothingOfAClickOnTheButtonThatIsOn)
{
    QTest::mouseClick(left, Qt::LeftButton, Qt::NoModifier, QPoint(8, left->height() / 2));
    EXPECT_EQ(listener.told, "");
}

TEST_F(QButtonObservableTest, TellsNothingToAListenerThatLeft)
{
    leftObservable.removeListener(&listener);
    right->setChecked(true);
    EXPECT_EQ(listener.told, "right on; ");
}

TEST_F(QButtonObservableTest, KnowsItsButtonAsLongAsThereIsOne)
{
    EXPECT_EQ(leftObservable.buttonWidget(), left);
    delete left;
    EXPECT_EQ(leftObservable.buttonWidget(), nullptr);
}

} // namespace
} // namespace veldraw::tests

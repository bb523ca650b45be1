#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/property/Property.h"

#include <QDoubleValidator>
#include <QIntValidator>
#include <QLineEdit>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;

/// A line edit that one binding after the other takes over.
class InstalledValidatorTest : public ::testing::Test
{
protected:
    template <typename T>
    void bind()
    {
        TextFieldPropertyBinding<T> const binding(&lineEdit, boost::make_shared<Property<T>>(T()));
    }

    std::string validatorClass() const
    {
        return lineEdit.validator() ? lineEdit.validator()->metaObject()->className() : "none";
    }
    std::string validatorName() const { return lineEdit.validator()->objectName().toStdString(); }
    int count() const { return lineEdit.findChildren<QValidator*>().size(); }

    QLineEdit lineEdit;
    std::string const installed = "VeldrawBindingInstalledValidator";
};

TEST_F(InstalledValidatorTest, IsOneForNumbersInADoubleField)
{
    bind<double>();
    EXPECT_EQ(validatorClass(), "QDoubleValidator");
    EXPECT_EQ(validatorName(), installed);
    EXPECT_EQ(lineEdit.validator()->parent(), &lineEdit);
}

TEST_F(InstalledValidatorTest, IsOneForWholeNumbersInTheIntegralFields)
{
    bind<int>();
    EXPECT_EQ(validatorClass(), "QIntValidator");
    EXPECT_EQ(validatorName(), installed);
    bind<long long>();
    EXPECT_EQ(validatorClass(), "QIntValidator");
    EXPECT_EQ(validatorName(), installed);
    EXPECT_EQ(qobject_cast<QIntValidator const*>(lineEdit.validator())->top(), std::numeric_limits<int>::max());
}

TEST_F(InstalledValidatorTest, IsOneForWholeNumbersInTheFieldOfAnEnumeration)
{
    class Bound : public LineEditPropertyBindingAbstract<Drift_e>
    {
    public:
        using LineEditPropertyBindingAbstract<Drift_e>::LineEditPropertyBindingAbstract;
        void updateWidgetValue() override {}
        void updateWidgetVisibility() override {}
        void updateWidgetSensitivity() override {}
    };
    Bound const binding(&lineEdit, boost::make_shared<Property<Drift_e>>());
    EXPECT_EQ(validatorClass(), "QIntValidator");
    EXPECT_EQ(validatorName(), installed);
}

TEST_F(InstalledValidatorTest, IsNoneInATextField)
{
    bind<std::string>();
    EXPECT_EQ(validatorClass(), "none");
}

TEST_F(InstalledValidatorTest, ReplacesThatOfAnEarlierBinding)
{
    bind<double>();
    bind<int>();
    EXPECT_EQ(validatorClass(), "QIntValidator");
    EXPECT_EQ(count(), 1);
    bind<int>();
    EXPECT_EQ(count(), 1);
    bind<double>();
    EXPECT_EQ(validatorClass(), "QDoubleValidator");
    EXPECT_EQ(count(), 1);
}

TEST_F(InstalledValidatorTest, GoesWhenATextFieldTakesOver)
{
    bind<double>();
    bind<std::string>();
    EXPECT_EQ(validatorClass(), "none");
    EXPECT_EQ(count(), 0);
}

TEST_F(InstalledValidatorTest, LeavesThatOfTheForm)
{
    QDoubleValidator formers(0.0, 1.0, 3, &lineEdit);
    for (QString const& name : {QString(), QStringLiteral("smoothValidator")}) {
        formers.setObjectName(name);
        lineEdit.setValidator(&formers);
        bind<double>();
        bind<int>();
        bind<long long>();
        bind<std::string>();
        EXPECT_EQ(lineEdit.validator(), &formers);
        EXPECT_EQ(count(), 1);
    }
    EXPECT_EQ(formers.locale(), QLocale());
}

TEST_F(InstalledValidatorTest, StaysWhenItsBindingEnds)
{
    bind<double>();
    EXPECT_EQ(count(), 1);
    lineEdit.setText(QStringLiteral("x"));
    EXPECT_FALSE(lineEdit.hasAcceptableInput());
}

} // namespace
} // namespace veldraw::tests

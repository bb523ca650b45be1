#include "tests/manual/NumberSection.h"

#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/SpinBoxDoublePropertyBinding.h"
#include "dialogs/bindings/SpinBoxIntPropertyBinding.h"
#include "dialogs/bindings/SpinBoxLgIndexPropertyBinding.h"
#include "dialogs/models/EnumerationLabels.h"
#include "dialogs/models/PremappedListModel.h"
#include "dialogs/property/AngleDecorator.h"
#include "dialogs/property/AngleSpinBoxIncDecCalculator.h"
#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"

#include <QComboBox>

#include <boost/make_shared.hpp>

namespace veldraw::tests {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::propertymanager::AngleDecorator;
using sdk::ui::propertymanager::AngleSpinBoxIncDecCalculator;
using veldraw::ui::IntegralSpinBox;
using veldraw::ui::QScientificSpinBox;

NumberSection::NumberSection()
    : GallerySection(QStringLiteral("Spin boxes"))
{
    using Limits = BoundedValueValidator<int>;
    boost::shared_ptr<PropertyAbstract<int>> const copies = boost::make_shared<Property<int>>(
        3, boost::make_shared<Limits>(1, 12, Limits::LowerInclusive, Limits::UpperInclusive));
    bind<SpinBoxIntPropertyBinding>(addRow(QStringLiteral("1 &to 12"), "copies",
                                           "SpinBoxIntPropertyBinding: takes the property's limits",
                                           new IntegralSpinBox, copies),
                                    copies, nullptr);

    boost::shared_ptr<PropertyAbstract<long long>> const index = boost::make_shared<Property<long long>>(40);
    auto* const indexBox =
        addRow(QStringLiteral("&Index"), "index", "SpinBoxLgIndexPropertyBinding", new IntegralSpinBox, index);
    indexBox->setRange(1, 1'000'000);
    bind<SpinBoxLgIndexPropertyBinding>(indexBox, index, nullptr);

    boost::shared_ptr<PropertyAbstract<double>> const factor = boost::make_shared<Property<double>>(0.1);
    auto* const factorBox = addRow(QStringLiteral("&Factor"), "factor", "SpinBoxDoublePropertyBinding, steps of 0.01",
                                   new QScientificSpinBox, factor);
    factorBox->setSingleStep(0.01);
    bind<SpinBoxDoublePropertyBinding>(factorBox, factor, nullptr);

    addAngle();
}

void NumberSection::addAngle()
{
    boost::shared_ptr<PropertyAbstract<double>> const degrees = boost::make_shared<Property<double>>(30.0);
    boost::shared_ptr<PropertyAbstract<ThetaMode_e>> const unit =
        boost::make_shared<Property<ThetaMode_e>>(ThetaMode_Degrees);
    boost::shared_ptr<PropertyAbstract<double>> const shown = boost::make_shared<AngleDecorator>(degrees, unit);
    bind<SpinBoxDoublePropertyBinding>(
        addRow(QStringLiteral("&Angle"), "angle",
               "SpinBoxDoublePropertyBinding over an AngleDecorator; the value beside it is in degrees",
               new QScientificSpinBox, degrees),
        shown, boost::make_shared<AngleSpinBoxIncDecCalculator>(unit));
    bind<ComboBoxPropertyBinding<ThetaMode_e>>(
        addRow(QStringLiteral("Its unit"), "unit", "ComboBoxPropertyBinding<ThetaMode_e>", new QComboBox, unit),
        boost::make_shared<models::PremappedListModel<ThetaMode_e>>(models::thetaModeLabels), unit,
        BindingInterface::ModelUpdateUndeferred);
}

} // namespace veldraw::tests

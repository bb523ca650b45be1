#include "tests/manual/ChoiceSection.h"

#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/CheckButtonPropertyBinding.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/RadioButtonPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/SimpleToolTipProvider.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/models/EnumerationLabels.h"
#include "dialogs/models/PremappedListModel.h"
#include "dialogs/property/BooleanPropertyDependentRelevance.h"
#include "dialogs/property/Property.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <boost/make_shared.hpp>

namespace veldraw::tests {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::propertymanager::BooleanPropertyDependentRelevance;

namespace {

boost::shared_ptr<PropertyAbstract<bool>> flag(bool start)
{
    return boost::make_shared<Property<bool>>(start);
}

QRadioButton* radioButton(QWidget* group, char const* name, char const* text)
{
    auto* const button = new QRadioButton(QString::fromUtf8(text));
    button->setObjectName(QString::fromUtf8(name));
    group->layout()->addWidget(button);
    return button;
}

QWidget* emptyGroup()
{
    auto* const group = new QWidget;
    auto* const layout = new QHBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    return group;
}

} // namespace

ChoiceSection::ChoiceSection()
    : GallerySection(QStringLiteral("Choices and buttons"))
{
    boost::shared_ptr<PropertyAbstract<WindowFunction_e>> const window =
        boost::make_shared<Property<WindowFunction_e>>(WindowFunction_Triangular);
    bind<ComboBoxPropertyBinding<WindowFunction_e>>(
        addRow(QStringLiteral("&Combo box"), "window", "ComboBoxPropertyBinding<WindowFunction_e>", new QComboBox,
               window),
        boost::make_shared<models::PremappedListModel<WindowFunction_e>>(models::windowFunctionLabels), window,
        BindingInterface::ModelUpdateUndeferred);
    addRadioButtons();
    addCheckBoxes();
    addButton();
    addGovernedField();
}

void ChoiceSection::addRadioButtons()
{
    boost::shared_ptr<PropertyAbstract<LinearInterpMode_e>> const outside =
        boost::make_shared<Property<LinearInterpMode_e>>(LinearInterpMode_DontChange);
    QWidget* const outsideGroup = addRow(QStringLiteral("Two values"), "outside",
                                         "RadioButtonPropertyBinding<LinearInterpMode_e>", emptyGroup(), outside);
    using ModeButton = RadioButtonPropertyBinding<LinearInterpMode_e>;
    bind<ModeButton>(radioButton(outsideGroup, "keep", "&Keep"), outside, LinearInterpMode_DontChange);
    bind<ModeButton>(radioButton(outsideGroup, "constant", "C&onstant"), outside, LinearInterpMode_SetToConstant);

    boost::shared_ptr<PropertyAbstract<char>> const axis = boost::make_shared<Property<char>>('X');
    QWidget* const axisGroup =
        addRow(QStringLiteral("Three values"), "axis", "RadioButtonPropertyBinding<char>", emptyGroup(), axis);
    using AxisButton = RadioButtonPropertyBinding<char>;
    bind<AxisButton>(radioButton(axisGroup, "axisX", "&X"), axis, 'X');
    bind<AxisButton>(radioButton(axisGroup, "axisY", "&Y"), axis, 'Y');
    bind<AxisButton>(radioButton(axisGroup, "axisZ", "&Z"), axis, 'Z');
}

void ChoiceSection::addCheckBoxes()
{
    auto const check = flag(true);
    bind<CheckButtonPropertyBinding>(addRow(QStringLiteral("Check box"), "check", "CheckButtonPropertyBinding",
                                            new QCheckBox(QStringLiteral("Checked means t&rue")), check),
                                     check, false);
    auto const inverted = flag(true);
    bind<CheckButtonPropertyBinding>(addRow(QStringLiteral("Inverted"), "inverted",
                                            "CheckButtonPropertyBinding, inverted",
                                            new QCheckBox(QStringLiteral("Checked means fal&se")), inverted),
                                     inverted, true);
}

void ChoiceSection::addButton()
{
    boost::shared_ptr<PropertyAbstract<int>> const clicks = boost::make_shared<Property<int>>(0);
    auto* const button = addRow(QStringLiteral("Button"), "button", "ButtonBinding: adds one",
                                new QPushButton(QStringLiteral("Cou&nt a click")), clicks);
    bind<ButtonBinding>(*button, [clicks] { clicks->setValue(clicks->value() + 1); });
}

void ChoiceSection::addGovernedField()
{
    auto const usable = flag(false);
    auto const shown = flag(true);
    bind<CheckButtonPropertyBinding>(addRow(QStringLiteral("Rule"), "usable",
                                            "BooleanPropertyDependentRelevance: enables the field below",
                                            new QCheckBox(QStringLiteral("The field can be used")), usable),
                                     usable, false);
    bind<CheckButtonPropertyBinding>(addRow(QStringLiteral("Rule"), "shown",
                                            "BooleanPropertyDependentRelevance: shows the field below",
                                            new QCheckBox(QStringLiteral("The field is shown")), shown),
                                     shown, false);

    boost::shared_ptr<PropertyAbstract<std::string>> const text =
        boost::make_shared<Property<std::string>>("two rules");
    auto* const field =
        addRow(QStringLiteral("Field"), "governed", "RelevanceApplier, for both rules", new QLineEdit, text);
    bind<TextFieldPropertyBinding<std::string>>(field, text);

    auto const isUsable = boost::make_shared<BooleanPropertyDependentRelevance>(usable);
    bind<RelevanceApplier>(isUsable, field, RelevanceApplier::EnableDisable, BindingInterface::UpdateOnIdle);
    bind<RelevanceApplier>(boost::make_shared<BooleanPropertyDependentRelevance>(shown), field,
                           RelevanceApplier::ShowHide, BindingInterface::UpdateOnIdle);
    SimpleToolTipProvider::installDisabledToolTip(isUsable, {field},
                                                  QStringLiteral("Check \"The field can be used\" first"));
}

} // namespace veldraw::tests

#include "dialogs/bindings/CheckButtonPropertyBinding.h"

#include "dialogs/bindings/ValueCommit.h"

#include <QAbstractButton>
#include <QSignalBlocker>

namespace veldraw::sdk::ui::dialogs::propertybindings {

CheckButtonPropertyBinding::CheckButtonPropertyBinding(QAbstractButton* const button,
                                                       boost::shared_ptr<PropertyAbstract<bool>> property,
                                                       bool inverted)
    : QObjectPropertyBinding<bool>(property, UpdateOnIdle)
    , m_button(button)
    , m_property(property)
    , m_isInverted(inverted)
{
    CheckButtonPropertyBinding::updateWidgetValue();
    connect(button, &QAbstractButton::toggled, this, &CheckButtonPropertyBinding::onToggled);
}

CheckButtonPropertyBinding::~CheckButtonPropertyBinding() = default;

void CheckButtonPropertyBinding::updateWidgetValue()
{
    if (!m_button)
        return;
    QSignalBlocker const blocker(m_button.data());
    m_button->setChecked(m_property->value() != m_isInverted);
}

void CheckButtonPropertyBinding::onToggled(bool isChecked)
{
    QPointer<QObject> const self = this;
    boost::shared_ptr<PropertyAbstract<bool>> const property = m_property;
    // Writes the widget in any case: the property may have refused or altered the value.
    updateValueOnIdle();
    bool const isTaken = commitValue(*property, isChecked != m_isInverted);
    if (self && !isTaken)
        updateWidgetValue();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings

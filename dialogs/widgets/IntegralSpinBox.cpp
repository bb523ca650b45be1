#include "dialogs/widgets/IntegralSpinBox.h"

#include "dialogs/widgets/NumberValidators.h"

#include <QHideEvent>
#include <QLocale>

namespace veldraw::ui {

namespace {

QLocale withoutGroups(QLocale locale)
{
    locale.setNumberOptions(locale.numberOptions() | QLocale::RejectGroupSeparator);
    return locale;
}

} // namespace

IntegralSpinBox::IntegralSpinBox(QWidget* parent)
    : QSpinBox(parent)
{
}

IntegralSpinBox::~IntegralSpinBox() = default;

QValidator::State IntegralSpinBox::validate(QString& text, int& pos) const
{
    WholeNumberValidator validator(minimum(), maximum());
    validator.setLocale(withoutGroups(locale()));
    return validator.validate(text, pos);
}

void IntegralSpinBox::fixup(QString&) const {}

int IntegralSpinBox::valueFromText(QString const& text) const
{
    return withoutGroups(locale()).toInt(withoutBlanksAround(text));
}

void IntegralSpinBox::stepBy(int steps)
{
    m_steps.tell(steps);
}

// Qt ends the repetition when the box is hidden; it has no function for that.
void IntegralSpinBox::stopStepping()
{
    QHideEvent event;
    hideEvent(&event);
}

boost::signals2::connection IntegralSpinBox::connectIncrement(boost::function<void(int)> const& slot)
{
    boost::signals2::connection connection = m_steps.connectIncrement(slot);
    signalIncrementConnected();
    return connection;
}

boost::signals2::connection IntegralSpinBox::connectDecrement(boost::function<void(int)> const& slot)
{
    boost::signals2::connection connection = m_steps.connectDecrement(slot);
    signalDecrementConnected();
    return connection;
}

void IntegralSpinBox::signalIncrementConnected() const {}

void IntegralSpinBox::signalDecrementConnected() const {}

} // namespace veldraw::ui

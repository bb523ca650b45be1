#include "dialogs/widgets/IntegralSpinBox.h"

#include <QHideEvent>

namespace veldraw::ui {

IntegralSpinBox::IntegralSpinBox(QWidget* parent)
    : QSpinBox(parent)
{
}

IntegralSpinBox::~IntegralSpinBox() = default;

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

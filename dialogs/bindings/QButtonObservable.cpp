#include "dialogs/bindings/QButtonObservable.h"

#include <QAbstractButton>

namespace veldraw::sdk::ui::dialogs::propertybindings {

QButtonObservable::QButtonObservable(QAbstractButton* button)
    : m_button(button)
{
    connect(button, &QAbstractButton::toggled, this, [this] {
        m_listeners.tell([this](QButtonListenerInterface& listener) { listener.buttonStateChanged(*this); });
    });
}

QButtonObservable::~QButtonObservable() = default;

void QButtonObservable::addListener(QButtonListenerInterface* listener)
{
    m_listeners.add(listener);
}

void QButtonObservable::removeListener(QButtonListenerInterface* listener)
{
    m_listeners.remove(listener);
}

QAbstractButton* QButtonObservable::buttonWidget() const
{
    return m_button;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings

#include "dialogs/bindings/QComboBoxObservable.h"

#include <QComboBox>

namespace veldraw::sdk::ui::dialogs::propertybindings {

QComboBoxObservable::QComboBoxObservable(QComboBox* comboBox)
{
    connect(comboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
        m_listeners.tell([index](QComboBoxListenerInterface& listener) { listener.currentIndexChanged(index); });
    });
}

QComboBoxObservable::~QComboBoxObservable() = default;

void QComboBoxObservable::addListener(QComboBoxListenerInterface* listener)
{
    m_listeners.add(listener);
}

void QComboBoxObservable::removeListener(QComboBoxListenerInterface* listener)
{
    m_listeners.remove(listener);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings

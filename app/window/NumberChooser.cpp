#include "app/window/NumberChooser.h"

#include <QSignalBlocker>
#include <QWheelEvent>

namespace veldraw::app {

NumberChooser::NumberChooser(QString const& name, QString const& accessibleText, QWidget* parent)
    : QComboBox(parent)
{
    setObjectName(name);
    setAccessibleName(accessibleText);
    setFocusPolicy(Qt::StrongFocus);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(12);
    connect(this, QOverload<int>::of(&QComboBox::activated), this, [this] { Q_EMIT chosen(number()); });
}

void NumberChooser::show(Choices const& choices, int number)
{
    QSignalBlocker const silent(this);
    if (choices != m_choices) {
        m_choices = choices;
        clear();
        for (auto const& [value, text] : choices)
            addItem(text, value);
    }
    setCurrentIndex(findData(number));
}

void NumberChooser::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace veldraw::app

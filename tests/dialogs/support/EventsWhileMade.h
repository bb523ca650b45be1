#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QWidget>

#include <functional>
#include <utility>

namespace veldraw::tests {

/// Asks something at each event of a type that reaches the widget of a name, also while the dialog that it is in is still being
/// made and nobody has a pointer to it.
class EventsWhileMade : public QObject
{
public:
    /// @param question gets the window that the widget is in
    EventsWhileMade(QString name, QEvent::Type type, std::function<void(QWidget& window)> question)
        : m_name(std::move(name))
        , m_type(type)
        , m_question(std::move(question))
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const widget = qobject_cast<QWidget*>(watched);
        if (widget && event->type() == m_type && widget->objectName() == m_name)
            m_question(*widget->window());
        return false;
    }

private:
    QString const m_name;
    QEvent::Type const m_type;
    std::function<void(QWidget&)> const m_question;
};

} // namespace veldraw::tests

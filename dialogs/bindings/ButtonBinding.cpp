#include "dialogs/bindings/ButtonBinding.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTextEdit>

namespace veldraw::sdk::ui::dialogs::propertybindings {

namespace {

bool takesText(QWidget const* widget)
{
    return qobject_cast<QLineEdit const*>(widget) || qobject_cast<QAbstractSpinBox const*>(widget) ||
           qobject_cast<QTextEdit const*>(widget);
}

// False when the field keeps the focus, since it refused what was typed.
bool commitPendingText(QAbstractButton& button)
{
    QWidget const& window = *button.window();
    QPointer<QWidget> const field = window.focusWidget();
    if (!takesText(field))
        return true;
    button.setFocus(Qt::ShortcutFocusReason);
    return window.focusWidget() != field;
}

// A press gives the button the focus before it arrives, unless the field that had it refused to let go.
bool wasFocusRefused(QAbstractButton const& button)
{
    return (button.focusPolicy() & Qt::ClickFocus) && takesText(button.window()->focusWidget());
}

} // namespace

ButtonBinding::ButtonBinding(QAbstractButton& button, boost::function<void()> const& function)
    : m_button(button)
    , m_function(function)
{
    connect(&button, &QAbstractButton::clicked, this, &ButtonBinding::onClicked);
    button.installEventFilter(this);
}

ButtonBinding::~ButtonBinding() = default;

bool ButtonBinding::eventFilter(QObject*, QEvent* event)
{
    bool const isPress = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    return isPress && wasFocusRefused(m_button);
}

void ButtonBinding::onClicked()
{
    QPointer<ButtonBinding> const self = this;
    if (!commitPendingText(m_button) || !self)
        return;
    // The function may end this binding, and itself with it.
    boost::function<void()> const function = m_function;
    function();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings

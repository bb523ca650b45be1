#include "dialogs/bindings/AbandonedInputFilter.h"

#include <QEvent>
#include <QWidget>

namespace veldraw::sdk::ui::dialogs::propertybindings {

AbandonedInputFilter::AbandonedInputFilter(QWidget& widget, std::function<void()> const& abandoned)
    : m_abandoned(abandoned)
{
    widget.installEventFilter(this);
}

AbandonedInputFilter::~AbandonedInputFilter() = default;

// A window that goes says first that it is hidden, then takes the focus from its widgets, and hides them last.
bool AbandonedInputFilter::isAbandoned(QWidget const& widget, QEvent const& event)
{
    bool const losesFocus = event.type() == QEvent::FocusOut && widget.isVisible();
    return (losesFocus || event.type() == QEvent::Hide) && widget.window()->isHidden();
}

bool AbandonedInputFilter::eventFilter(QObject* watched, QEvent* event)
{
    // A widget that is being deleted loses the focus too, when it is none any more.
    auto const* const widget = qobject_cast<QWidget const*>(watched);
    if (widget && isAbandoned(*widget, *event))
        m_abandoned();
    return false;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings

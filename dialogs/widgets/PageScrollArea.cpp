#include "dialogs/widgets/PageScrollArea.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>

namespace veldraw::dialogs::common {

PageScrollArea::PageScrollArea(QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    viewport()->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* focus) { showFocus(focus); });
}

PageScrollArea::~PageScrollArea() = default;

QSize PageScrollArea::sizeHint() const
{
    return widget() ? widget()->sizeHint() : QScrollArea::sizeHint();
}

QSize PageScrollArea::minimumSizeHint() const
{
    QSize const least = QScrollArea::minimumSizeHint();
    if (!widget())
        return least;
    int const page = widget()->minimumSizeHint().width();
    return {page + verticalScrollBar()->sizeHint().width(), least.height()};
}

bool PageScrollArea::event(QEvent* event)
{
    if (event->type() == QEvent::Polish && widget())
        widget()->setAutoFillBackground(false); // the page keeps the ground of what it stands in
    return QScrollArea::event(event);
}

bool PageScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry(); // texts or fonts may have changed, and with them the room that the page needs
    return QScrollArea::eventFilter(watched, event);
}

void PageScrollArea::showFocus(QWidget* focus)
{
    bool const isByMouse = QApplication::mouseButtons() != Qt::NoButton; // nothing may move away under the mouse
    if (focus && !isByMouse && widget() && widget()->isAncestorOf(focus))
        ensureWidgetVisible(focus);
}

} // namespace veldraw::dialogs::common

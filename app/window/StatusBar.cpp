#include "app/window/StatusBar.h"

#include <QPainter>
#include <QSizeGrip>

#include <algorithm>

namespace veldraw::app {

namespace {

constexpr int margin = 6;

} // namespace

StatusBar::StatusBar(QWidget* parent)
    : QStatusBar(parent)
{
    setObjectName(QStringLiteral("statusBar"));
    connect(this, &QStatusBar::messageChanged, this, &QWidget::setToolTip);
}

QRect StatusBar::messageArea() const
{
    QRect area = rect().adjusted(margin, 0, -margin, 0);
    for (QWidget const* const child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isHidden())
            continue;
        if (isRightToLeft())
            area.setLeft(std::max(area.left(), child->geometry().right() + 2 * margin));
        else
            area.setRight(std::min(area.right(), child->geometry().left() - 2 * margin));
    }
    return area;
}

QString StatusBar::shownMessage() const
{
    return fontMetrics().elidedText(currentMessage(), Qt::ElideRight, messageArea().width());
}

void StatusBar::paintEvent(QPaintEvent* event)
{
    if (currentMessage().isEmpty())
        return QStatusBar::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(messageArea(), Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine, shownMessage());
}

} // namespace veldraw::app

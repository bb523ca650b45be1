#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPoint>

class QAbstractScrollArea;
class QHeaderView;
class QMouseEvent;

namespace veldraw::dialogs::common {
class TableViewWithPreferredDimensions;
}

namespace veldraw::sdk::ui::propertymanager {

class TableWindow;

/// Selects cells with the mouse in a table that has more rows or columns than its view: by Shift and a click on a cell or on
/// the name of a row or column, and by dragging, which scrolls while the mouse is outside the view. Qt's view would extend
/// only the part of the selection that it has. A table that the view shows whole is left to the view.
class LongTableMouseSelector : public QObject
{
    Q_OBJECT

public:
    using View = veldraw::dialogs::common::TableViewWithPreferredDimensions;

    /// Belongs to the window's view and filters the events of its cells and headers.
    LongTableMouseSelector(TableWindow& window, View& view);
    ~LongTableMouseSelector() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    bool cellsEvent(QMouseEvent const& mouse);
    bool pressOnCell(QMouseEvent const& mouse);
    bool pressOnHeader(Qt::Orientation direction, QHeaderView const& header, QMouseEvent const& mouse);
    void endDrag();
    void extendToMouse();

    TableWindow& m_window;
    View& m_view;
    bool m_isDragging = false;
    QPoint m_mouse; // position of the drag in the viewport
    QBasicTimer m_scrollTimer;
};

} // namespace veldraw::sdk::ui::propertymanager

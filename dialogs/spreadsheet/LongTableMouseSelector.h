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

/// Selecting with the mouse over all of a table that is longer than its view can hold: by Shift and a click on a cell or on a
/// row's name, and by dragging, which scrolls while the mouse is beside the table. The view itself would begin from what it
/// has of the selection, which may reach out of the window. In a shorter table it sees to its mouse itself.
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
    QPoint m_mouse; // where a drag has come to, in the viewport
    QBasicTimer m_scrollTimer;
};

} // namespace veldraw::sdk::ui::propertymanager

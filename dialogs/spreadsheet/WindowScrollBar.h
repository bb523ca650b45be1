#pragma once

#include <QScrollBar>

class QAbstractScrollArea;

namespace veldraw::sdk::ui::propertymanager {

class TableWindow;

/// A scroll bar over all rows, or all columns, of a table of which the view has only a window. It takes the place of the
/// view's own bar while there is more than the window; otherwise it is hidden.
///
/// Its steps are exact. The slider counts in coarser units where there are more positions than an int tells.
class WindowScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    /// Stands where the view's own bar in this direction stands.
    /// @param window of the view
    WindowScrollBar(Qt::Orientation direction, TableWindow& window, QAbstractScrollArea& view);
    ~WindowScrollBar() override;

private:
    void onActionTriggered(int action);
    void onValueChanged(int slider);
    void follow();
    int sliderOf(unsigned long long position) const;
    unsigned long long positionOf(int slider) const;

    TableWindow& m_window;
    QScrollBar& m_ownBarOfView;
};

} // namespace veldraw::sdk::ui::propertymanager

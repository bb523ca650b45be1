#pragma once

#include "kernel/frames/Frame.h"

#include <QGroupBox>

class QPushButton;
class QSpinBox;

namespace veldraw::ui {
class QScientificSpinBox;
}

namespace veldraw::app {

class NumberChooser;

/// The fields for the colours of a contour: the colour map, the values that it goes over, and the number of levels. What the user does is
/// told; shown numbers follow by show() alone.
class ContourBox : public QGroupBox
{
    Q_OBJECT

public:
    explicit ContourBox(QWidget* parent = nullptr);

    /// Shows the colours of a field plot, with the limits that its legend has.
    void show(kernel::Frame const& frame);

Q_SIGNALS:
    void chosen(veldraw::kernel::ContourColours const& colours);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Box = ui::QScientificSpinBox;

    Box* newLimit(char const* name, QString const& text, double kernel::ContourColours::*member);
    void takeLimit(Box const& box, double kernel::ContourColours::*member);
    void step(double kernel::ContourColours::*member, int steps);
    void setLimits(double min, double max);
    void takeLevels(int levels);

    NumberChooser* m_map;
    Box* m_min;
    Box* m_max;
    QPushButton* m_asShown;
    QSpinBox* m_levels;
    kernel::ContourColours m_kept;  // in the frame
    kernel::ContourColours m_shown; // with the limits of the legend
};

} // namespace veldraw::app

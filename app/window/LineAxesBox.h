#pragma once

#include "kernel/frames/Frame.h"

#include <QGroupBox>

#include <array>

class QLineEdit;
class QPushButton;

namespace veldraw::app {

/// The fields for the axes of a line plot: from where to where each goes, what is written beside it, and the title of the plot. What the user
/// does is told; what the fields show follows by show() alone.
class LineAxesBox : public QGroupBox
{
    Q_OBJECT

public:
    explicit LineAxesBox(QWidget* parent = nullptr);

    /// Shows the axes of a line plot.
    void show(kernel::Frame const& frame);

Q_SIGNALS:
    void chosen(veldraw::kernel::LineAxisKind kind, veldraw::kernel::LineAxis const& axis);
    void titleChosen(QString const& title);
    /// Axes are to go over all values again.
    void fitWanted();

private:
    struct Fields
    {
        QLineEdit* min;
        QLineEdit* max;
        QLineEdit* title;
    };

    QLineEdit* newField(QString const& name, QString const& text);
    void takeLimits(kernel::LineAxisKind kind);
    void takeTitle(kernel::LineAxisKind kind);
    void showLimits(kernel::LineAxisKind kind);

    std::array<Fields, kernel::lineAxisCount> m_fields;
    QLineEdit* m_title;
    QPushButton* m_fit;
    kernel::LinePlotAxes m_kept;                                  // in the frame
    std::array<kernel::LineAxis, kernel::lineAxisCount> m_values; // what the curves have, as far as it is known
};

} // namespace veldraw::app

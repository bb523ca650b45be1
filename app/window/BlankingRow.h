#pragma once

#include "app/window/NumberChooser.h"
#include "kernel/data/ValueBlanking.h"

#include <QWidget>

class QCheckBox;
class QToolButton;

namespace veldraw::ui {
class QScientificSpinBox;
}

namespace veldraw::app {

/// The fields of one constraint of a value blanking. What the user does is told; what is shown follows by show() alone.
class BlankingRow : public QWidget
{
    Q_OBJECT

public:
    /// @param number one-based, for the names of the fields
    explicit BlankingRow(int number, QWidget* parent = nullptr);

    /// @param variables enabled ones; @param step of the arrows of the limit
    void show(kernel::BlankingConstraint const& constraint, NumberChooser::Choices const& variables, int variable,
              double step);

    /// Puts the keyboard focus on the limit.
    void takeFocus();

Q_SIGNALS:
    void variableChosen(int variable);
    void changed(veldraw::kernel::BlankingConstraint const& constraint);
    void removed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeLimit(QString const& number);
    void takeLimit(double limit);

    QCheckBox* m_active;
    NumberChooser* m_variable;
    NumberChooser* m_side;
    ui::QScientificSpinBox* m_limit;
    QToolButton* m_remove;
    kernel::BlankingConstraint m_shown;
    double m_step = 1.0;
};

} // namespace veldraw::app

#include "app/window/BlankingRow.h"

#include "dialogs/widgets/QScientificSpinBox.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QSignalBlocker>
#include <QToolButton>

#include <cmath>

namespace veldraw::app {

BlankingRow::BlankingRow(int number, QWidget* parent)
    : QWidget(parent)
    , m_active(new QCheckBox)
    , m_variable(new NumberChooser(QStringLiteral("blankingVariable%1").arg(number),
                                   QStringLiteral("Variable of constraint %1").arg(number)))
    , m_side(new NumberChooser(QStringLiteral("blankingSide%1").arg(number),
                               QStringLiteral("Side of the limit of constraint %1").arg(number)))
    , m_limit(new ui::QScientificSpinBox)
    , m_remove(new QToolButton)
{
    m_active->setObjectName(QStringLiteral("blankingActive%1").arg(number));
    m_active->setAccessibleName(QStringLiteral("Constraint %1 counts").arg(number));
    m_active->setToolTip(QStringLiteral("Whether this constraint counts"));
    m_remove->setObjectName(QStringLiteral("blankingRemove%1").arg(number));
    m_remove->setAccessibleName(QStringLiteral("Remove constraint %1").arg(number));
    m_remove->setToolTip(QStringLiteral("Remove this constraint"));
    m_remove->setText(QStringLiteral("\u00d7"));
    m_remove->setAutoRaise(true);
    m_remove->setFocusPolicy(Qt::StrongFocus);
    makeLimit(QString::number(number));
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_active, 0, 0);
    grid->addWidget(m_variable, 0, 1, 1, 2);
    grid->addWidget(m_remove, 0, 3);
    grid->addWidget(m_side, 1, 1);
    grid->addWidget(m_limit, 1, 2, 1, 2);
    grid->setColumnStretch(2, 1);
    connect(m_active, &QCheckBox::clicked, this, [this](bool isActive) {
        kernel::BlankingConstraint constraint = m_shown;
        constraint.isActive = isActive;
        Q_EMIT changed(constraint);
    });
    connect(m_variable, &NumberChooser::chosen, this, &BlankingRow::variableChosen);
    connect(m_side, &NumberChooser::chosen, this, [this](int side) {
        kernel::BlankingConstraint constraint = m_shown;
        constraint.isAbove = side == 1;
        Q_EMIT changed(constraint);
    });
    connect(m_remove, &QToolButton::clicked, this, &BlankingRow::removed);
}

void BlankingRow::makeLimit(QString const& number)
{
    m_limit->setObjectName(QStringLiteral("blankingLimit") + number);
    m_limit->setAccessibleName(QStringLiteral("Limit of constraint ") + number);
    m_limit->setMinimumWidth(56);
    m_limit->setFocusPolicy(Qt::StrongFocus);
    m_limit->installEventFilter(this);
    connect(m_limit, &ui::QScientificSpinBox::editingFinished, this, [this] { takeLimit(m_limit->value()); });
    m_limit->connectIncrement([this](int steps) { takeLimit(m_shown.limit + steps * m_step); });
    m_limit->connectDecrement([this](int steps) { takeLimit(m_shown.limit - std::abs(steps) * m_step); });
}

// The wheel scrolls past a field that has not the focus.
bool BlankingRow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel && !m_limit->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void BlankingRow::takeLimit(double limit)
{
    if (!(limit < m_shown.limit) && !(limit > m_shown.limit))
        return;
    kernel::BlankingConstraint constraint = m_shown;
    constraint.limit = limit;
    Q_EMIT changed(constraint);
}

void BlankingRow::takeFocus()
{
    m_limit->setFocus(Qt::OtherFocusReason);
    m_limit->selectAll();
}

void BlankingRow::show(kernel::BlankingConstraint const& constraint, NumberChooser::Choices const& variables,
                       int variable, double step)
{
    bool const isOther = m_limit->value() < constraint.limit || m_limit->value() > constraint.limit;
    m_shown = constraint;
    m_step = step;
    m_active->setChecked(constraint.isActive);
    m_variable->show(variables, variable);
    m_side->show({{0, QStringLiteral("below")}, {1, QStringLiteral("above")}}, constraint.isAbove ? 1 : 0);
    if (isOther) // nothing but another number is written to the box, so that what is being typed stays
        m_limit->setValue(constraint.limit);
}

} // namespace veldraw::app

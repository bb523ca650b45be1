#include "app/window/BlankingBox.h"

#include "app/window/BlankingRow.h"
#include "app/window/VariableRange.h"

#include <QCheckBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace veldraw::app {

namespace {

// A hundredth of the range, so that the arrows go through it.
double stepIn(kernel::DataSet const& dataSet, int variable)
{
    kernel::ValueRange const range = VariableRange(dataSet, variable).limits();
    double const width = range.isValid() ? range.max / 100.0 - range.min / 100.0 : 0.0;
    return width > 0.0 ? width : 1.0;
}

} // namespace

BlankingBox::BlankingBox(QWidget* parent)
    : QGroupBox(QStringLiteral("Value blanking"), parent)
    , m_on(new QCheckBox(QStringLiteral("Leave out cells")))
    , m_list(new QVBoxLayout)
    , m_add(new QPushButton(QStringLiteral("Add Constraint")))
{
    m_on->setObjectName(QStringLiteral("blankingOn"));
    m_on->setToolTip(QStringLiteral("Leave out the cells where a constraint below holds at all of their points"));
    m_add->setObjectName(QStringLiteral("blankingAdd"));
    m_add->setToolTip(QStringLiteral("Leave out the cells where a variable is below or above a limit"));
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_on);
    layout->addLayout(m_list);
    layout->addWidget(m_add);
    connect(m_on, &QCheckBox::clicked, this, [this](bool isOn) {
        kernel::ValueBlanking blanking = m_shown;
        blanking.isOn = isOn;
        Q_EMIT chosen(blanking);
    });
    connect(m_add, &QPushButton::clicked, this, &BlankingBox::add);
}

// In the middle of the range, where the limit shows what it does.
kernel::BlankingConstraint BlankingBox::constraintOn(int variable) const
{
    kernel::BlankingConstraint constraint;
    constraint.variable = m_dataSet->variable(variable)->id;
    kernel::ValueRange const range = VariableRange(*m_dataSet, variable).limits();
    if (range.isValid())
        constraint.limit = 0.5 * range.min + 0.5 * range.max;
    return constraint;
}

// The first one switches the blanking on.
void BlankingBox::add()
{
    if (!m_dataSet || m_variables.empty())
        return;
    kernel::ValueBlanking blanking = m_shown;
    blanking.isOn = blanking.isOn || blanking.constraints.empty();
    blanking.constraints.push_back(constraintOn(m_contour > 0 ? m_contour : m_variables.front().first));
    m_isAdding = true;
    Q_EMIT chosen(blanking);
}

void BlankingBox::change(std::size_t at, kernel::BlankingConstraint const& constraint)
{
    kernel::ValueBlanking blanking = m_shown;
    blanking.constraints[at] = constraint;
    Q_EMIT chosen(blanking);
}

void BlankingBox::connectRow(BlankingRow& row, std::size_t at)
{
    connect(&row, &BlankingRow::changed, this,
            [this, at](kernel::BlankingConstraint const& constraint) { change(at, constraint); });
    connect(&row, &BlankingRow::variableChosen, this, [this, at](int variable) {
        kernel::BlankingConstraint constraint = constraintOn(variable);
        constraint.isAbove = m_shown.constraints[at].isAbove;
        constraint.isActive = m_shown.constraints[at].isActive;
        change(at, constraint);
    });
    connect(&row, &BlankingRow::removed, this, [this, at] {
        kernel::ValueBlanking blanking = m_shown;
        blanking.constraints.erase(blanking.constraints.begin() + static_cast<std::ptrdiff_t>(at));
        Q_EMIT chosen(blanking);
    });
}

void BlankingBox::setRowCount(std::size_t count)
{
    while (m_rows.size() > count) {
        m_rows.back()->hide();
        m_rows.back()->deleteLater();
        m_rows.pop_back();
    }
    while (m_rows.size() < count) {
        std::size_t const at = m_rows.size();
        m_rows.push_back(new BlankingRow(static_cast<int>(at) + 1));
        connectRow(*m_rows.back(), at);
        m_list->addWidget(m_rows.back());
        QWidget::setTabOrder(at == 0 ? static_cast<QWidget*>(m_on) : m_rows[at - 1], m_rows.back());
    }
}

void BlankingBox::show(kernel::Frame const& frame, NumberChooser::Choices const& variables)
{
    m_dataSet = frame.dataSet;
    m_contour = frame.variableNumber('C');
    m_variables = variables;
    m_shown = {frame.valueBlanking.isOn, {}};
    for (kernel::BlankingConstraint const& constraint : frame.valueBlanking.constraints)
        if (m_dataSet->variableNumber(constraint.variable) != 0)
            m_shown.constraints.push_back(constraint);
    m_on->setChecked(m_shown.isOn);
    m_add->setEnabled(!variables.empty() && m_shown.constraints.size() < kernel::ValueBlanking::mostConstraints);
    bool const isNew = std::exchange(m_isAdding, false) && m_shown.constraints.size() > m_rows.size();
    setRowCount(m_shown.constraints.size());
    for (std::size_t at = 0; at < m_rows.size(); ++at) {
        kernel::BlankingConstraint const& constraint = m_shown.constraints[at];
        int const variable = m_dataSet->variableNumber(constraint.variable);
        m_rows[at]->show(constraint, variables, variable, stepIn(*m_dataSet, variable));
        m_rows[at]->setEnabled(m_shown.isOn);
    }
    if (isNew)
        m_rows.back()->takeFocus();
}

} // namespace veldraw::app

#pragma once

#include "app/window/NumberChooser.h"
#include "kernel/frames/Frame.h"

#include <QGroupBox>

#include <vector>

class QCheckBox;
class QPushButton;
class QVBoxLayout;

namespace veldraw::app {

class BlankingRow;

/// The fields for the value blanking of a field plot: a switch, and a row for each constraint on a variable that there is. What the user does
/// is told; what is shown follows by show() alone.
class BlankingBox : public QGroupBox
{
    Q_OBJECT

public:
    explicit BlankingBox(QWidget* parent = nullptr);

    /// @param variables the enabled ones
    void show(kernel::Frame const& frame, NumberChooser::Choices const& variables);

Q_SIGNALS:
    void chosen(veldraw::kernel::ValueBlanking const& blanking);

private:
    void setRowCount(std::size_t count);
    void connectRow(BlankingRow& row, std::size_t at);
    void add();
    void change(std::size_t at, kernel::BlankingConstraint const& constraint);
    kernel::BlankingConstraint constraintOn(int variable) const;

    QCheckBox* m_on;
    QVBoxLayout* m_list;
    QPushButton* m_add;
    std::vector<BlankingRow*> m_rows;
    std::shared_ptr<kernel::DataSet const> m_dataSet;
    int m_contour = 0; // number of the contour variable
    NumberChooser::Choices m_variables;
    kernel::ValueBlanking m_shown; // without constraints on variables that are gone
    bool m_isAdding = false;
};

} // namespace veldraw::app

#pragma once

#include <QComboBox>

#include <string>

namespace veldraw::tests {

/// A person in front of a combo box: looks at it, presses keys, opens it and picks a row.
class ComboBoxDriver
{
public:
    explicit ComboBoxDriver(QComboBox& comboBox);

    /// Shows the box, waits until its window is the active one and gives it the focus.
    void show();
    void press(Qt::Key key);
    void open();
    /// Clicks a row of the open list.
    void clickRow(int row);
    /// Opens the list and clicks a row.
    void pick(int row);
    /// Makes a row the current one and tells it by the box's own signal. For what throws: Qt's widgets lose the memory that
    /// they hold when an exception passes them, and here none is on the way.
    void announce(int row);

    /// "1 [2] 3": the texts of all rows, the current one in brackets.
    std::string look() const;

private:
    QComboBox& m_comboBox;
};

} // namespace veldraw::tests

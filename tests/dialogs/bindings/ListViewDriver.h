#pragma once

#include <QListView>
#include <QString>

#include <set>
#include <string>

namespace veldraw::tests {

/// A person in front of a list view: looks at it, clicks, presses keys.
class ListViewDriver
{
public:
    explicit ListViewDriver(QListView& view);

    /// Shows the view and waits until it is on the screen.
    void show();
    void click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Opens the editor of a row by a double click, replaces its text and presses Return.
    void edit(int row, QString const& text);

    /// "1 [2] [3]": the display texts, the selected ones in brackets.
    std::string look() const;

private:
    QListView& m_view;
};

/// "2 4"
std::string text(std::set<int> const& values);

} // namespace veldraw::tests

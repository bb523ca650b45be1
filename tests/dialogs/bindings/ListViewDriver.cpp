#include "tests/dialogs/bindings/ListViewDriver.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace veldraw::tests {

ListViewDriver::ListViewDriver(QListView& view)
    : m_view(view)
{
}

void ListViewDriver::show()
{
    m_view.resize(240, 400);
    m_view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_view));
    m_view.setFocus();
}

void ListViewDriver::click(int row, Qt::KeyboardModifiers modifiers)
{
    QModelIndex const index = m_view.model()->index(row, 0);
    m_view.scrollTo(index);
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, modifiers, m_view.visualRect(index).center());
}

void ListViewDriver::press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&m_view, static_cast<Qt::Key>(key), modifiers);
}

void ListViewDriver::edit(int row, QString const& text)
{
    QPoint const place = m_view.visualRect(m_view.model()->index(row, 0)).center();
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(m_view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QLineEdit* const editor = m_view.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr) << "the row can't be edited";
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents(); // the delegate commits through the event loop
}

std::string ListViewDriver::look() const
{
    std::string seen;
    for (int row = 0; row < m_view.model()->rowCount(); ++row) {
        QModelIndex const index = m_view.model()->index(row, 0);
        std::string const shown = index.data().toString().toStdString();
        seen += (row == 0 ? "" : " ") + (m_view.selectionModel()->isSelected(index) ? "[" + shown + "]" : shown);
    }
    return seen;
}

std::string text(std::set<int> const& values)
{
    std::string joined;
    for (int const value : values)
        joined += (joined.empty() ? "" : " ") + std::to_string(value);
    return joined;
}

} // namespace veldraw::tests

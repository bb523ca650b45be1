#include "tests/dialogs/bindings/ComboBoxDriver.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QSignalBlocker>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace veldraw::tests {

ComboBoxDriver::ComboBoxDriver(QComboBox& comboBox)
    : m_comboBox(comboBox)
{
}

void ComboBoxDriver::show()
{
    m_comboBox.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_comboBox));
    m_comboBox.setFocus();
}

void ComboBoxDriver::press(Qt::Key key)
{
    QTest::keyClick(&m_comboBox, key);
}

void ComboBoxDriver::open()
{
    // Within the time of a double click Qt takes the next click for the second half of this one.
    int const interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0);
    QTest::mouseClick(&m_comboBox, Qt::LeftButton, Qt::NoModifier, QPoint(5, m_comboBox.height() / 2));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_comboBox.view()->window()));
    QTest::qWait(1); // the list lays its rows out
    QApplication::setDoubleClickInterval(interval);
}

void ComboBoxDriver::clickRow(int row)
{
    QAbstractItemView& list = *m_comboBox.view();
    QModelIndex const index = list.model()->index(row, 0);
    list.scrollTo(index);
    QPoint const inList(5, list.visualRect(index).center().y()); // the rows may be wider than the list
    QPoint const place = list.viewport()->mapTo(list.window(), inList);
    QTest::mouseClick(list.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
}

void ComboBoxDriver::pick(int row)
{
    open();
    clickRow(row);
}

void ComboBoxDriver::announce(int row)
{
    {
        QSignalBlocker const silence(m_comboBox);
        m_comboBox.setCurrentIndex(row);
    }
    Q_EMIT m_comboBox.currentIndexChanged(row);
}

std::string ComboBoxDriver::look() const
{
    std::string seen;
    for (int row = 0; row < m_comboBox.count(); ++row) {
        std::string const text = m_comboBox.itemText(row).toStdString();
        seen += (row == 0 ? "" : " ") + (row == m_comboBox.currentIndex() ? "[" + text + "]" : text);
    }
    return seen;
}

} // namespace veldraw::tests

#include "tests/dialogs/support/SpinBoxDriver.h"

#include "tests/dialogs/support/Wheel.h"

#include <QStyleOptionSpinBox>
#include <QTest>

namespace veldraw::tests {

SpinBoxDriver::SpinBoxDriver(QAbstractSpinBox& box)
    : m_box(box)
{
}

void SpinBoxDriver::type(char const* text)
{
    m_box.setFocus();
    m_box.selectAll();
    QTest::keyClick(&m_box, Qt::Key_Delete);
    QTest::keyClicks(&m_box, QString::fromUtf8(text));
}

void SpinBoxDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&m_box, key, modifiers);
}

void SpinBoxDriver::clickUp()
{
    QTest::mouseClick(&m_box, Qt::LeftButton, Qt::NoModifier, arrow(QStyle::SC_SpinBoxUp));
}

void SpinBoxDriver::clickDown()
{
    QTest::mouseClick(&m_box, Qt::LeftButton, Qt::NoModifier, arrow(QStyle::SC_SpinBoxDown));
}

void SpinBoxDriver::holdUp()
{
    QTest::mousePress(&m_box, Qt::LeftButton, Qt::NoModifier, arrow(QStyle::SC_SpinBoxUp));
}

void SpinBoxDriver::releaseUp()
{
    QTest::mouseRelease(&m_box, Qt::LeftButton, Qt::NoModifier, arrow(QStyle::SC_SpinBoxUp));
}

void SpinBoxDriver::turnWheel(int notches)
{
    tests::turnWheel(m_box, notches);
}

std::string SpinBoxDriver::text() const
{
    return m_box.text().toStdString();
}

QPoint SpinBoxDriver::arrow(QStyle::SubControl control) const
{
    QStyleOptionSpinBox option;
    option.initFrom(&m_box);
    option.frame = true;
    option.subControls = QStyle::SC_All;
    return m_box.style()->subControlRect(QStyle::CC_SpinBox, &option, control, &m_box).center();
}

} // namespace veldraw::tests

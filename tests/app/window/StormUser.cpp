#include "tests/app/window/StormUser.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

namespace veldraw::tests {

namespace {

bool canBeUsed(QWidget const& widget)
{
    return widget.isVisible() && widget.isEnabled() &&
           (qobject_cast<QAbstractButton const*>(&widget) || qobject_cast<QAbstractItemView const*>(&widget) ||
            qobject_cast<QAbstractSpinBox const*>(&widget) || qobject_cast<QComboBox const*>(&widget) ||
            qobject_cast<QLineEdit const*>(&widget) || qobject_cast<QScrollBar const*>(&widget) ||
            qobject_cast<QTabBar const*>(&widget));
}

/// No number is large: what a user can wait for is not what the storm looks for.
std::vector<QString> const& texts()
{
    static std::vector<QString> const some{
        QString(),
        QStringLiteral("0"),
        QStringLiteral("1"),
        QStringLiteral("2"),
        QStringLiteral("3"),
        QStringLiteral("7"),
        QStringLiteral("-1"),
        QStringLiteral("60"),
        QStringLiteral("nan"),
        QStringLiteral("1e400"),
        QStringLiteral("1,5"),
        QStringLiteral("a name"),
        QString::fromUtf8("\xC3\xA4\xE2\x82\xAC"),
    };
    return some;
}

} // namespace

StormUser::StormUser(StormDice& dice, QWidget& window, int dialogs, std::function<void(int)> launch)
    : m_dice(dice)
    , m_window(window)
    , m_dialogs(dialogs)
    , m_launch(std::move(launch))
{
    // Windows that wait for an answer run an event loop of their own within an event of the storm.
    QObject::connect(&m_closer, &QTimer::timeout, [this] { closeModal(); });
    m_closer.start(1);
}

void StormUser::launchAll()
{
    for (int dialog = 0; dialog < m_dialogs; ++dialog)
        m_launch(dialog);
}

void StormUser::act()
{
    QPointer<QWidget> const dialog = someDialog();
    if (!dialog || m_dice.below(60) == 0)
        return m_launch(m_dice.below(m_dialogs));
    if (m_dice.below(25) == 0)
        return resize(m_dice.below(3) == 0 ? m_window : *dialog);
    if (m_dice.below(8) == 0)
        return pressKey(dialog->focusWidget() ? *dialog->focusWidget() : *dialog);
    if (QWidget* const place = somePlaceIn(*dialog))
        use(*place);
}

QWidget* StormUser::someDialog()
{
    std::vector<QWidget*> dialogs;
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (qobject_cast<QDialog*>(widget) && widget->isVisible())
            dialogs.push_back(widget);
    return dialogs.empty() ? nullptr : m_dice.pick(dialogs);
}

QWidget* StormUser::somePlaceIn(QWidget& dialog)
{
    std::vector<QWidget*> places;
    for (QWidget* const widget : dialog.findChildren<QWidget*>())
        if (canBeUsed(*widget))
            places.push_back(widget);
    return places.empty() ? nullptr : m_dice.pick(places);
}

void StormUser::use(QWidget& widget)
{
    if (qobject_cast<QLineEdit*>(&widget))
        return type(widget);
    if (auto* const box = qobject_cast<QComboBox*>(&widget)) {
        // Not its list, which would take all input until it is closed.
        box->setFocus();
        QTest::keyClick(box, m_dice.pick(std::vector<Qt::Key>{Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_End}));
        return;
    }
    click(widget);
    if (qobject_cast<QAbstractItemView*>(&widget) && m_dice.below(10) == 0)
        QTest::keyClick(&widget, Qt::Key_F2);
}

void StormUser::click(QWidget& widget)
{
    QWindow* const window = widget.window()->windowHandle();
    if (!window)
        return;
    QPoint const inside(m_dice.below(widget.width()), m_dice.below(std::min(widget.height(), 120)));
    auto const modifiers = m_dice.pick(std::vector<Qt::KeyboardModifiers>{
        Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier});
    QTest::mouseClick(window, Qt::LeftButton, modifiers, widget.mapTo(widget.window(), inside));
}

void StormUser::type(QWidget& widget)
{
    QPointer<QWidget> const field = &widget;
    widget.setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    if (field)
        QTest::keyClick(field, Qt::Key_Delete);
    for (QChar const character : m_dice.pick(texts()))
        if (field)
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character), Qt::NoModifier);
    if (field)
        QTest::keyClick(field, m_dice.pick(std::vector<Qt::Key>{Qt::Key_Tab, Qt::Key_Return, Qt::Key_Escape}));
}

void StormUser::pressKey(QWidget& widget)
{
    Qt::Key const key = m_dice.pick(std::vector<Qt::Key>{Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Return,
                                                         Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right,
                                                         Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End, Qt::Key_Escape});
    QTest::keyClick(&widget, key, m_dice.below(6) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
}

void StormUser::resize(QWidget& widget)
{
    widget.resize(200 + m_dice.below(900), 150 + m_dice.below(700));
}

void StormUser::closeModal()
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    else if (QWidget* const modal = QApplication::activeModalWidget())
        QTest::keyClick(modal, Qt::Key_Escape);
}

} // namespace veldraw::tests

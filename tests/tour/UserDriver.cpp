#include "tests/tour/UserDriver.h"

#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QWindow>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;

UserDriver::UserDriver(QString pictureFolder)
    : m_folder(std::move(pictureFolder))
{
    QDir().mkpath(m_folder);
    QObject::connect(&m_reader, &QTimer::timeout, &m_reader, [this] { readMessageBox(); });
    m_reader.start(100);
}

// Without a window manager nobody else makes a window the active one.
void UserDriver::activate(QWidget& window)
{
    window.raise();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    waitFor([&] { return window.isActiveWindow(); });
    settle();
}

void UserDriver::click(QWidget& widget)
{
    click(widget, widget.rect().center());
}

void UserDriver::click(QWidget& widget, QPoint const& point, Qt::KeyboardModifiers modifiers)
{
    QWidget& window = *widget.window();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, modifiers, widget.mapTo(&window, point));
    settle();
}

void UserDriver::clickRow(QAbstractItemView& view, int row, Qt::KeyboardModifiers modifiers)
{
    waitFor([&] { return row < view.model()->rowCount(view.rootIndex()); });
    QModelIndex const index = view.model()->index(row, 0, view.rootIndex());
    view.scrollTo(index);
    QPoint const inViewport = view.visualRect(index).center();
    click(*view.viewport(), inViewport, modifiers);
}

QWidgetList UserDriver::visibleTopLevels()
{
    QWidgetList visible;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible())
            visible.push_back(widget);
    return visible;
}

QWidget* UserDriver::receiverOfKeys()
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal->focusWidget() ? modal->focusWidget() : modal;
    QWidget* const window = QApplication::activeWindow();
    return window && window->focusWidget() ? window->focusWidget() : window;
}

void UserDriver::key(int key, Qt::KeyboardModifiers modifiers)
{
    if (QWidget* const receiver = receiverOfKeys())
        QTest::keyClick(receiver, static_cast<Qt::Key>(key), modifiers);
    settle();
}

void UserDriver::type(QString const& text)
{
    if (QWidget* const receiver = receiverOfKeys())
        QTest::keyClicks(receiver, text);
    settle();
}

bool UserDriver::waitFor(std::function<bool()> const& condition, int milliseconds)
{
    return QTest::qWaitFor(condition, milliseconds);
}

void UserDriver::settle(int milliseconds)
{
    QTest::qWait(milliseconds);
    waitFor([] { return sdk::AppLock::depth() > 0 || IdleDispatcher::pendingCount() == 0; });
}

QStringList UserDriver::messagesDuring(std::function<void()> const& action, std::function<bool()> const& isDone,
                                       QString const& pictureName)
{
    QStringList heard;
    m_heard = &heard;
    m_pictureOfMessage = pictureName;
    action();
    // A button that is pressed by its mnemonic stays down for a moment before it acts.
    waitFor([&] { return !heard.isEmpty() || isDone(); });
    waitFor([] { return !qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); });
    m_heard = nullptr;
    m_pictureOfMessage.clear();
    return heard;
}

void UserDriver::readMessageBox()
{
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || !box->isVisible() || box->property("readByTour").toBool())
        return;
    box->setProperty("readByTour", true);
    (m_heard ? *m_heard : m_unexpected).push_back(box->text());
    if (!m_pictureOfMessage.isEmpty())
        picture(m_pictureOfMessage);
    QTest::keyClick(box, Qt::Key_Return);
}

void UserDriver::picture(QString const& name)
{
    settle(200);
    QString const file =
        QStringLiteral("%1/%2-%3.png").arg(m_folder).arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(name);
    QRect windows;
    for (QWidget const* const window : visibleTopLevels())
        windows |= window->frameGeometry();
    QScreen* const screen = QApplication::primaryScreen();
    windows &= screen->geometry();
    screen->grabWindow(0, windows.x(), windows.y(), windows.width(), windows.height()).save(file);
}

} // namespace veldraw::tests

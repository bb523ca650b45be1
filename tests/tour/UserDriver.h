#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>

class QAbstractItemView;

namespace veldraw::tests {

/// Does what a person does: clicks and types through the windows, waits for what comes, takes pictures.
///
/// Clicks go to the window under the point, so a modal dialog blocks what it would block for a person.
class UserDriver
{
public:
    /// @param pictureFolder where picture() saves; made when it is not there
    explicit UserDriver(QString pictureFolder);

    /// Brings a window to the front and makes it the active one.
    void activate(QWidget& window);

    /// A left click in the middle of @p widget, or at a point of it.
    void click(QWidget& widget);
    void click(QWidget& widget, QPoint const& point, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// A click on a row of a list or table.
    void clickRow(QAbstractItemView& view, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Keys for the focus of the active window (or an open menu).
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(QString const& text);

    /// Longer than any step takes, also where other programs have the machine.
    static constexpr int patience = 60000; // milliseconds

    /// Runs the event loop until @p condition holds. @return false when it does not within @p milliseconds
    bool waitFor(std::function<bool()> const& condition, int milliseconds = patience);

    /// Lets time pass, and then everything come to rest that waits for idle.
    void settle(int milliseconds = 30);

    /// Calls @p action and waits until a message has come or @p isDone holds; each message is read and closed with its default
    /// key. @return the texts
    QStringList messagesDuring(std::function<void()> const& action, std::function<bool()> const& isDone,
                               QString const& pictureName = {});

    /// Texts of message boxes that came at any other time; they are closed too, so that the tour never stands still.
    QStringList const& unexpectedMessages() const { return m_unexpected; }

    /// Saves the part of the screen that the windows take up as "<number>-<name>.png".
    void picture(QString const& name);

    /// The visible top-level window of a class, null if there is none.
    template <typename T>
    static T* visibleWindow();

private:
    static QWidget* receiverOfKeys();
    static QWidgetList visibleTopLevels();
    void readMessageBox();

    QString m_folder;
    int m_pictures = 0;
    QTimer m_reader;
    QStringList* m_heard = nullptr; // where messages are expected
    QString m_pictureOfMessage;
    QStringList m_unexpected;
};

template <typename T>
T* UserDriver::visibleWindow()
{
    for (QWidget* widget : visibleTopLevels())
        if (auto* const window = dynamic_cast<T*>(widget)) // not every dialog has a meta-object of its own
            return window;
    return nullptr;
}

} // namespace veldraw::tests
